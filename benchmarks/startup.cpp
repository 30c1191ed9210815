// startup ours|udunits LIBRARY: prints how many nanoseconds a fresh process takes to load the
// library and to convert one length. UDUNITS-2 reads its units from files on the way.
//
// The functions are looked up by name, so that loading is part of what is measured.

#include <varnix/value/Units.h>

#include <udunits2.h>

#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

template <typename Function>
Function* Find(void* library, char const* name) {
    void* const address = library == nullptr ? nullptr : dlsym(library, name);
    if (address == nullptr) {
        std::fprintf(stderr, "startup: %s\n", dlerror());
        std::exit(2);
    }
    return reinterpret_cast<Function*>(address);
}

double Convert_by_ours(void* library) {
    using namespace Varnix::Value;
    // Units_library::Get_conversion_factor(Units const& target, Units const& source)
    auto* const factor = Find<double(Units const&, Units const&)>(
        library, "_ZN6Varnix5Value13Units_library21Get_conversion_factorERKNS0_5UnitsES4_");
    Units const feet = {SPL_NONE, NO_PREFIX, {{FOOT, 1}}};
    Units const metres = {SPL_NONE, NO_PREFIX, {{METER, 1}}};
    return 120.0 * factor(metres, feet);
}

double Convert_by_udunits(void* library) {
    Find<decltype(ut_set_error_message_handler)>(library, "ut_set_error_message_handler")(
        Find<decltype(ut_ignore)>(library, "ut_ignore"));
    ut_system* const system = Find<decltype(ut_read_xml)>(library, "ut_read_xml")(nullptr);
    auto* const parse = Find<decltype(ut_parse)>(library, "ut_parse");
    cv_converter* const converter = Find<decltype(ut_get_converter)>(library, "ut_get_converter")(
        parse(system, "ft", UT_UTF8), parse(system, "m", UT_UTF8));
    return Find<decltype(cv_convert_double)>(library, "cv_convert_double")(converter, 120.0);
}

} // namespace

int main(int argument_count, char** arguments) {
    if (argument_count != 3) {
        return 2;
    }
    bool const ours = std::string(arguments[1]) == "ours";
    auto const before = std::chrono::steady_clock::now();
    void* const library = dlopen(arguments[2], RTLD_NOW | RTLD_LOCAL);
    double const metres = ours ? Convert_by_ours(library) : Convert_by_udunits(library);
    std::chrono::nanoseconds const taken = std::chrono::steady_clock::now() - before;
    std::printf("%lld\n", static_cast<long long>(taken.count()));
    return metres > 36.575 && metres < 36.577 ? 0 : 1;
}
