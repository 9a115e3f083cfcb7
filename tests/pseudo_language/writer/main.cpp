// Writes a table of texts in the made-up language: write_pseudo_table ENGLISH.strings OUT.strings
#include <filesystem>
#include <fstream>
#include <iterator>

#include "foundation/strings_table.h"
#include "support/pseudo_text.h"

namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') quoted += '\\';
        character == '\n' ? quoted += "\\n" : quoted += character;
    }
    return quoted + '"';
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    std::ifstream english(argv[1]);
    const StringsTable table =
        ReadStringsTable(std::string(std::istreambuf_iterator<char>(english), {}));
    std::filesystem::create_directories(std::filesystem::path(argv[2]).parent_path());
    std::ofstream written(argv[2]);
    for (const auto& [key, text] : table.texts)
        written << Quoted(key) << " = " << Quoted(kalmo::test::PseudoText(text)) << ";\n";
    written.close();
    return table.texts.empty() || !written ? 1 : 0;
}
