// Runs the target once over every file of the folders given, and over its cuts, as an ordinary
// test.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    std::size_t inputs = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
            std::ifstream in(entry.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(in), {}};
            // Cut short at up to 64 places: truncation is the fault that files meet most.
            for (std::size_t cut = 0; cut <= 64; ++cut, ++inputs) {
                const std::string part = bytes.substr(0, bytes.size() * cut / 64);
                LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(part.data()),
                                       part.size());
            }
        }
    }
    std::printf("%zu inputs\n", inputs);
    return inputs == 0;  // an empty corpus tests nothing
}
