// Every window of the product: names, keyboard, identities, and room for its texts.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QXmlStreamReader>

#include "resource_files.h"
#include "support/bundles.h"
#include "support/window_walk.h"
#include "toolbox/host.h"
#include "toolbox/windows.h"

namespace kalmo::test {
namespace {

/// The windows of an interface file: the widgets directly inside its root.
QStringList WindowNames(const std::filesystem::path& file) {
    QFile xml(QString::fromStdString(file.string()));
    if (!xml.open(QIODevice::ReadOnly)) return {};
    QXmlStreamReader reader(&xml);
    QStringList names;
    int depth = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (reader.name() != QLatin1String("widget")) continue;
        if (token == QXmlStreamReader::EndElement) --depth;
        if (token == QXmlStreamReader::StartElement && ++depth == 2) {
            names.append(reader.attributes().value("name").toString());
        }
    }
    return names;
}

CFStringRef Text(const QString& text) { return CFStringMakeConstant(qUtf8Printable(text)); }

/// Restores what the whole program shares.
class Windows : public testing::Test {
protected:
    void TearDown() override {
        QApplication::setFont(font);
        unsetenv("LANGUAGE");
    }

    void check(const std::filesystem::path& file) {
        IBNibRef nib = nullptr;
        const QString name = QString::fromStdString(file.stem().string());
        ASSERT_EQ(CreateNibReferenceWithCFBundle(bundle, Text(name), &nib), noErr) << file;
        for (const QString& windowName : WindowNames(file)) {
            SCOPED_TRACE(name.toStdString() + " " + windowName.toStdString());
            WindowRef window = nullptr;
            ASSERT_EQ(CreateWindowFromNib(nib, Text(windowName), &window), noErr);
            QWidget& widget = *WidgetFromWindow(window);
            EXPECT_EQ(WindowFaults(widget, Identities::needed), std::vector<std::string>());
            EXPECT_EQ(CutTexts(widget), std::vector<std::string>());
            ++checked;
            DisposeWindow(window);
        }
        DisposeNibReference(nib);
    }

    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    QFont font = QApplication::font();
    int checked = 0;
};

TEST_F(Windows, ServeEverybodyInEveryLanguageAndSize) {
    for (const char* language : {"en", "de"}) {
        for (const qreal points : {9.0, 18.0}) {
            SCOPED_TRACE(std::string(language) + " at " + std::to_string(points));
            setenv("LANGUAGE", language, 1);
            QFont sized = font;
            sized.setPointSizeF(points);
            QApplication::setFont(sized);
            ForEachFile(kResources, {".ui"}, [this](const auto& file) { check(file); });
        }
    }
    EXPECT_GE(checked, 8) << "the files were not found";
}

}  // namespace
}  // namespace kalmo::test
