// What the test panels have been asked, in order: "2 read", "1 write", "3 open".
#pragma once

#include <string>
#include <vector>

namespace kalmo::test {

using Diary = std::vector<std::string>;

}  // namespace kalmo::test
