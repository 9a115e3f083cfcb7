// What nearly every test uses.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <tuple>
#include <vector>

#include "foundation/number.h"
#include "support/bundles.h"
#include "support/private_home.h"
#include "support/values.h"

namespace kalmo::test {

inline bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace kalmo::test
