// The watermark editor, through its controls.
#include "watermark/watermark_editor.h"

#include "paper_output/dialog_test.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kPreview = 100, kMessage = 101, kPictureKind = 202, kText = 302, kFamily = 304,
                 kStyle = 306, kSize = 308, kAngle = 313, kDial = 315, kUnits = 321, kRight = 323,
                 kUp = 326, kFile = 402, kChoose = 403, kScale = 405;

struct WatermarkEditors : DialogTest {
    WatermarkEditors() {
        setDefaultValues(*record, 0);
        SetWatermarkText(record->textString, CFSTR("Draft"));
        QImage(4, 4, QImage::Format_RGB32).save(QString::fromStdString(picture()));
        WriteFile(folder / "torn.png", "no picture");
    }
    SInt32 run(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        return RunModalWatermarkEditor(bundle, CFSTR("WatermarkEditorTitle"), taken, record.get());
    }
    std::string picture() const { return (folder / "seal.png").string(); }
    /// Presses Choose and takes the file in the window that opens.
    static void chooseFile(QWidget& window, const std::filesystem::path& file) {
        QTimer::singleShot(0, [file] {
            auto* const chooser = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(chooser);
            chooser->selectFile(QString::fromStdString(file.string()));
            QMetaObject::invokeMethod(chooser, "accept");
        });
        Press(window, kChoose);
    }
    static std::string Message(QWidget& window) {
        return Control<QLabel>(window, kMessage).text().toStdString();
    }

    WatermarkHolder record;
    CFArrayRef taken = nullptr;
    std::filesystem::path folder = MakeFolder("pictures");
};

TEST_F(WatermarkEditors, TakeATextAndItsNumbers) {
    SetWatermarkGlyphs(*record, std::initializer_list<UInt16>{7});
    EXPECT_EQ(run([](QWidget& window) {
                  Type(window, kText, "  ");
                  EXPECT_FALSE(Enabled(window, kOK)) << "only blanks";
                  Type(window, kText, "Geheim");
                  Type(window, kAngle, "-30");
                  EXPECT_EQ(Control<QAbstractSlider>(window, kDial).value(), -30);
                  Type(window, kSize, "1000");
                  Press(window, kOK);
                  EXPECT_EQ(Text(window, kSize), "999") << "put right, and looked at";
                  EXPECT_EQ(Control<QWidget>(window, kSize).accessibleDescription(),
                            "Enter a number from 1 to 999.");
                  Press(window, kOK);
              }),
              kModalOK);
    EXPECT_STREQ(record->textString, "Geheim");
    EXPECT_EQ(record->textMode, 1u);
    EXPECT_EQ(record->angle, -30);
    EXPECT_EQ(record->fontSize, 999);
    EXPECT_EQ(record->glyphs, nullptr) << "those of another text";
}

TEST_F(WatermarkEditors, ShowWhatIsOutOfRangeAndCancelLeavesEveryByte) {
    record->density = -5, record->angle = 100000, record->fontSize = 0, record->scale = INT32_MIN;
    record->units = 7, record->xOffset = -1e30F;
    const _WatermarkData before = *record;
    EXPECT_EQ(run([](QWidget& window) {
                  EXPECT_EQ(Text(window, kAngle), "-80\u02DA");
                  EXPECT_EQ(Text(window, kSize), "1");
                  EXPECT_EQ(Text(window, kRight), "-4.2");
                  Type(window, kText, "Copy");
                  Press(window, kPictureKind);
                  EXPECT_EQ(Text(window, kScale), "1%");
                  Press(window, kCancel);
              }),
              kModalCancel);
    EXPECT_EQ(std::memcmp(&before, record.get(), sizeof before), 0);
}

TEST_F(WatermarkEditors, KeepAnOffsetInEitherUnitsAndHoldItOnThePage) {
    record->pageWidth = 595, record->pageHeight = 842, record->xOffset = 1.2345F;
    run([](QWidget& window) {
        EXPECT_EQ(Text(window, kRight), "1.2");
        Choose(window, kUnits, "Millimeters");
        EXPECT_EQ(Text(window, kRight), "31");
        Type(window, kUp, "149");
        Press(window, kOK);
        EXPECT_EQ(Text(window, kUp), "148") << "half of the page";
        Type(window, kUp, "-148");
        Press(window, kOK);
    });
    EXPECT_EQ(record->xOffset, 1.2345F);
    EXPECT_FLOAT_EQ(record->yOffset, -148 / 25.4F);
    EXPECT_EQ(record->units, 1);
}

TEST_F(WatermarkEditors, LetTheMarkBeDraggedAsFarAsTheFieldsGo) {
    run([](QWidget& window) {
        QWidget& preview = Control(window, kPreview);
        const QPoint start = preview.rect().center();
        const QPoint place = start + QPoint(28, 4000);  // the page is 239 pixels wide
        QTest::mousePress(&preview, Qt::LeftButton, {}, start);
        QTest::mouseMove(&preview, place);
        QTest::mouseRelease(&preview, Qt::LeftButton, {}, place);
        Press(window, kOK);
    });
    EXPECT_FLOAT_EQ(record->xOffset, 1);
    EXPECT_FLOAT_EQ(record->yOffset, -5.5);
}

TEST_F(WatermarkEditors, KeepTheNameOfAFontUntilAnotherIsChosen) {
    SetWatermarkText(record->fontName, CFSTR("Nowhere-BoldItalic"));
    run([](QWidget& window) {
        EXPECT_NE(Control<QComboBox>(window, kFamily).currentText(), "") << "the one in its place";
        Choose(window, kStyle, Control<QComboBox>(window, kStyle).currentText());
        Press(window, kOK);
    });
    EXPECT_STREQ(record->fontName, "Nowhere-BoldItalic");
    run([](QWidget& window) {
        Choose(window, kFamily, "DejaVu Sans Mono");
        Choose(window, kStyle, "Bold");
        Press(window, kOK);
    });
    EXPECT_STREQ(record->fontName, "DejaVuSansMono-Bold");
}

TEST_F(WatermarkEditors, TakeAPictureOnlyWhenItCanBeRead) {
    SetWatermarkText(record->textString, CFSTR(""));
    SetWatermarkText(record->filename, CFSTR("gone.png"));
    EXPECT_EQ(run([this](QWidget& window) {
                  EXPECT_TRUE(QTest::qWaitFor([&] { return !Message(window).empty(); }));
                  EXPECT_FALSE(Enabled(window, kOK)) << "the record's own is gone";
                  chooseFile(window, picture());
                  EXPECT_TRUE(QTest::qWaitFor([&] { return Enabled(window, kOK); }));
                  EXPECT_EQ(Message(window), "");
                  chooseFile(window, folder / "torn.png");
                  EXPECT_FALSE(Enabled(window, kOK)) << "being read";
                  EXPECT_TRUE(QTest::qWaitFor([&] { return Enabled(window, kOK); }));
                  EXPECT_EQ(Text(window, kFile), "seal.png");
                  Press(window, kOK);
              }),
              kModalOK);
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_TRUE(notices[0].starts_with("The picture “torn.png” cannot be read.")) << notices[0];
    EXPECT_STREQ(record->filePath, picture().c_str());
    EXPECT_EQ(record->textMode, 0u);
}

TEST_F(WatermarkEditors, AskBeforeTheyTakeANameThatIsTaken) {
    const auto names = Array({CFSTR("Copy")});
    taken = names;
    run([this](QWidget& window) {
        Type(window, kText, "WatermarkListEntries");
        Press(window, kOK);
        Type(window, kText, "Copy");
        Press(window, kOK);
        EXPECT_TRUE(window.isVisible()) << "the other one is kept";
        agrees = true;
        Press(window, kOK);
    });
    EXPECT_STREQ(record->textString, "Copy");
    EXPECT_EQ(questions.size(), 2u);
    EXPECT_EQ(notices.size(), 1u) << "a name that the store needs";
}

}  // namespace
}  // namespace kalmo::test
