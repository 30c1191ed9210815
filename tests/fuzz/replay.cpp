// Runs a fuzzer over the inputs that are kept, without libFuzzer: with every compiler, on every
// processor. replay FOLDER

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

int main(int count, char** arguments) {
    int inputs = 0;
    for (auto const& file : std::filesystem::directory_iterator(count == 2 ? arguments[1] : "")) {
        std::ifstream stream(file.path(), std::ios::binary);
        std::vector<char> const bytes{std::istreambuf_iterator<char>(stream), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
        ++inputs;
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}
