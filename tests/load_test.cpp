// Loads modules that use the library, in a program that does not: the library comes and goes with
// them. load_test MODULE MODULE_WITH_A_COPY LOADS

#include <cstdint>
#include <cstdlib>
#include <iostream>

#include <dlfcn.h>
#include <malloc.h>

namespace {

void Require(bool condition, char const* what) {
    if (!condition) {
        char const* const reason = dlerror();
        std::cout << what << ": " << (reason == nullptr ? "" : reason) << std::endl;
        std::exit(1);
    }
}

void* Load(char const* module) {
    void* const handle = dlopen(module, RTLD_NOW | RTLD_LOCAL);
    Require(handle != nullptr, "cannot be loaded");
    return handle;
}

std::uint64_t Answers(void* handle, std::size_t count) {
    auto const answers = reinterpret_cast<std::uint64_t (*)(std::size_t)>(dlsym(handle, "Module_answers"));
    Require(answers != nullptr, "has no answers");
    return answers(count);
}

void Unload(void* handle, char const* module) {
    Require(dlclose(handle) == 0, "cannot be unloaded");
    Require(dlopen(module, RTLD_NOW | RTLD_NOLOAD) == nullptr, "the module stays in memory");
    Require(dlopen("libValueObject.so.1", RTLD_NOW | RTLD_NOLOAD) == nullptr, "the library stays in memory");
}

void Load_and_unload(char const* module) {
    void* const handle = Load(module);
    Answers(handle, 1);
    Unload(handle, module);
}

// A leak checker reports every block that is lost. Without one the heap must not grow by a table a
// load; the loader's own blocks and the allocator's caches do, by some bytes.
void Load_many_times(char const* module, long loads) {
    Load_and_unload(module);
    std::size_t const used = mallinfo2().uordblks;
    for (long round = 1; round < loads; ++round) {
        Load_and_unload(module);
    }
    Require(mallinfo2().uordblks <= used + 100 * static_cast<std::size_t>(loads), "the heap grows with every load");
}

// The library and, in another module, a copy of it: they agree, and one stays when the other goes.
void Load_two_copies(char const* module, char const* with_copy) {
    void* const first = Load(module);
    std::uint64_t const expected = Answers(first, 93);
    void* const second = Load(with_copy);
    Require(Answers(second, 93) == expected && Answers(first, 93) == expected, "the copies differ");
    Require(dlclose(second) == 0 && Answers(first, 93) == expected, "the first suffers when the second goes");
    void* const third = Load(with_copy);
    Unload(first, module);
    Require(Answers(third, 93) == expected, "the second suffers when the first goes");
    Unload(third, with_copy);
}

} // namespace

int main(int count, char** arguments) {
    Require(count == 4, "usage: load_test MODULE MODULE_WITH_A_COPY LOADS");
    Load_many_times(arguments[1], std::atol(arguments[3]));
    Load_two_copies(arguments[1], arguments[2]);
}
