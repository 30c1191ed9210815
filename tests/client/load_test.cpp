// Loads modules that use the library, in a program that does not: the library comes and goes with
// them. load_test MODULE MODULE_WITH_A_COPY LOADS

#include <cstdlib>
#include <iostream>
#include <string>

#include <dlfcn.h>
#include <malloc.h>

namespace {

void Require(bool condition, char const* what) {
    if (!condition) {
        std::cout << what << std::endl;
        std::exit(1);
    }
}

void* Load(char const* module) {
    void* const handle = dlopen(module, RTLD_NOW | RTLD_LOCAL);
    Require(handle != nullptr, "the module cannot be loaded");
    return handle;
}

void Require_answers(void* handle, std::string& expected) {
    auto const answers_are = reinterpret_cast<bool (*)(std::string&)>(dlsym(handle, "Answers_are"));
    Require(answers_are != nullptr && answers_are(expected), "the answers are wrong");
}

void Unload(void* handle, char const* module) {
    Require(dlclose(handle) == 0, "the module cannot be unloaded");
    Require(dlopen(module, RTLD_NOW | RTLD_NOLOAD) == nullptr, "the module stays in memory");
    Require(dlopen("libValueObject.so.1", RTLD_NOW | RTLD_NOLOAD) == nullptr, "the library stays in memory");
}

// A leak checker reports every block that is lost. Without one the heap must not grow by a table a
// load; the loader's own blocks and the allocator's caches do, by some bytes.
void Load_many_times(char const* module, std::size_t loads, std::string& expected) {
    std::size_t used = 0;
    for (std::size_t load = 0; load < loads; ++load) {
        void* const handle = Load(module);
        if (load % 100 == 0) {
            Require_answers(handle, expected);
        }
        Unload(handle, module);
        used = load == 0 ? mallinfo2().uordblks : used;
    }
    Require(mallinfo2().uordblks <= used + 100 * loads, "the heap grows with every load");
}

// The library and, in another module, a copy of it: either stays when the other goes.
void Load_two_copies(char const* module, char const* with_copy, std::string& expected) {
    for (bool const first_goes : {true, false}) {
        void* const first = Load(module);
        void* const second = Load(with_copy);
        Require_answers(first, expected);
        Require_answers(second, expected);
        Require(dlclose(first_goes ? first : second) == 0, "one of the copies cannot be unloaded");
        Require_answers(first_goes ? second : first, expected);
        Unload(first_goes ? second : first, first_goes ? with_copy : module);
    }
}

} // namespace

int main(int count, char** arguments) {
    Require(count == 4, "usage: load_test MODULE MODULE_WITH_A_COPY LOADS");
    std::string expected;
    Load_many_times(arguments[1], std::strtoul(arguments[3], nullptr, 10), expected);
    Load_two_copies(arguments[1], arguments[2], expected);
}
