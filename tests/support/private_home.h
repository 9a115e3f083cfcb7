// A private home for a test program: HOME and the XDG folders lie in a fresh temporary folder.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace kalmo::test {

/// Makes the folders and points the environment there, as the first thing in main. They go at exit.
/// After each test the environment is again as it was before it, and nobody is there to answer.
void UsePrivateHome();
/// The variables of this program.
[[nodiscard]] std::map<std::string, std::string> Environment();
/// A fresh folder under the private home.
[[nodiscard]] std::filesystem::path MakeFolder(const std::string& name);
[[nodiscard]] std::string ReadFile(const std::filesystem::path& file);
void WriteFile(const std::filesystem::path& file, const std::string& bytes);

}  // namespace kalmo::test
