// A process that converts once, from load to end: ours.

#include <varnix/value/Value_object.h>

int main() {
    using namespace Varnix::Value;
    Value_object<double> const length(120.0, C_Ft, 119.0, 121.0);
    return length.Convert_to(C_Meter).Get_value() > 36.0 ? 0 : 1;
}
