// Every picture that code asks for exists, can be drawn, and differs from every other one.
#include <QSvgRenderer>

#include "house/resource_files.h"
#include "support/qt_test.h"

namespace kalmo::test {
namespace {

QImage Drawn(const std::filesystem::path& file) {
    QSvgRenderer renderer(QString::fromStdString(file.string()));
    EXPECT_TRUE(renderer.isValid()) << file;
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

int DifferingPixels(const QImage& left, const QImage& right) {
    int count = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) count += left.pixel(x, y) != right.pixel(x, y);
    }
    return count;
}

TEST(Pictures, WhatCodeAsksForExists) {
    std::size_t asked = 0;
    const std::regex names(R"re("([^"/]+)\.(?:gif|png|icns)")re");
    ForEachFile(kSources, {".cpp"}, [&](const std::filesystem::path& file) {
        if (file.string().find("/platform/") != std::string::npos) return;
        for (const std::string& name : Matches(ReadFile(file), names)) {
            ++asked;
            EXPECT_TRUE(std::filesystem::exists(kResources / (name + ".svg")))
                << name << " of " << file;
        }
    });
    EXPECT_GE(asked, 12u);
}

TEST(Pictures, NoTwoAreAlike) {
    std::map<std::string, QImage> drawn;
    ForEachFile(kResources, {".svg"},
                [&](const std::filesystem::path& file) { drawn[file.filename()] = Drawn(file); });
    ASSERT_GE(drawn.size(), 12u);
    for (auto left = drawn.begin(); left != drawn.end(); ++left) {
        EXPECT_GT(
            DifferingPixels(left->second, QImage(64, 64, QImage::Format_ARGB32_Premultiplied)), 100)
            << left->first;
        for (auto right = std::next(left); right != drawn.end(); ++right) {
            // A twentieth of what a picture covers: the eye sees it at a glance.
            EXPECT_GT(DifferingPixels(left->second, right->second), 100)
                << left->first << " " << right->first;
        }
    }
}

}  // namespace
}  // namespace kalmo::test
