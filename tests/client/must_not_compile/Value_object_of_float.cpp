// Must be refused at compile time, in words that say what to write instead.

#include <varnix/value/Value_object.h>

Varnix::Value::Value_object<float> const wrong;
