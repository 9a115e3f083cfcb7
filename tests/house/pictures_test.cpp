// Every picture that code asks for exists, and each can be drawn.
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

TEST(Pictures, AreNotEmpty) {
    ForEachFile(kResources, {".svg"}, [](const std::filesystem::path& file) {
        const QImage drawn = Drawn(file);
        int covered = 0;
        for (int y = 0; y < drawn.height(); ++y)
            for (int x = 0; x < drawn.width(); ++x) covered += drawn.pixel(x, y) != 0;
        EXPECT_GT(covered, 100) << file;
    });
}

}  // namespace
}  // namespace kalmo::test
