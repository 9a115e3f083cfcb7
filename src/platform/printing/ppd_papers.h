// What a print dialog itself asks of a PPD file: papers, sources, colour modes. Opens the file
// anew, marks nothing that others see. Any thread; plain values only.
#pragma once

#include <optional>
#include <string>
#include <vector>

#pragma GCC visibility push(default)

struct PPDPaper {
    std::string keyword, text;                        // text in the user's language, UTF-8
    double width = 0, height = 0;                     // pt
    double left = 0, bottom = 0, right = 0, top = 0;  // imageable area, pt from the lower left
};
struct PPDChoiceText {
    std::string keyword, text;
};
struct PPDOptionTexts {
    std::string keyword, text, defaultChoice;
    std::vector<PPDChoiceText> choices;
};
struct PPDDescription {
    std::string manufacturer, makeAndModel;
    std::vector<PPDPaper> papers;
    std::string defaultPaper;
    bool customSizes = false;
    /// InputSlot, KLMColor, ColorModel, Duplex and every other option of the user interface.
    std::vector<PPDOptionTexts> options;
};

/// Nothing, with a one-line reason, when the file is no PPD file.
[[nodiscard]] std::optional<PPDDescription> ReadPPDDescription(const std::string& path,
                                                               std::string* reason);

#pragma GCC visibility pop
