// Prints what the library's tables take of the heap by the time main() runs.

#include <varnix/value/Units_library.h>

#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {
long blocks = 0;
long bytes = 0;
} // namespace

void* operator new(std::size_t size) {
    void* const memory = std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++blocks;
    bytes += static_cast<long>(malloc_usable_size(memory));
    return memory;
}

void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        --blocks;
        bytes -= static_cast<long>(malloc_usable_size(memory));
        std::free(memory);
    }
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

int main() {
    long const blocks_at_start = blocks;
    long const bytes_at_start = bytes;
    // Something of the library must be used for it to be loaded.
    bool const loaded = Varnix::Value::Units_library::Get_dimension(Varnix::Value::METER) == Varnix::Value::LENGTH;
    std::printf("%ld bytes in %ld blocks\n", bytes_at_start, blocks_at_start);
    return loaded ? 0 : 1;
}
