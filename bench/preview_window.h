// A window that is all one preview, and a photograph to show in it.
#pragma once

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QWidget>
#include <random>
#include <stdexcept>

#include "foundation/bundle.h"
#include "toolbox/controls.h"
#include "toolbox/host.h"
#include "toolbox/windows.h"
#include "watermark/page_preview.h"

namespace kalmo::bench {

inline constexpr double kPageWidth = 612, kPageHeight = 792;

inline const QTemporaryDir& Folder() {
    static const QTemporaryDir folder;
    return folder;
}

inline void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
}

/// Twelve megapixels of shapes and grain, as a camera writes them.
inline const QString& Photograph() {
    static const QString path = [] {
        QImage image(4000, 3000, QImage::Format_RGB32);
        std::minstd_rand random(1);
        for (int y = 0; y < image.height(); ++y) {
            auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                const int grain = static_cast<int>(random() % 24);
                row[x] = qRgb(x / 20 + grain, y / 16 + grain, (x ^ y) / 32 + grain);
            }
        }
        const QString file = Folder().filePath("photograph.jpg");
        image.save(file, "jpeg", 92);
        return file;
    }();
    return path;
}

inline constexpr char kInterface[] =
    "<ui version='4.0'><class>Panel</class><widget class='QWidget' name='Panel'>"
    "<widget class='QWidget' name='Window'><widget class='PictureControl' name='picture'>"
    "<property name='controlSignature' stdset='0'><string>KPDE</string></property>"
    "<property name='controlID' stdset='0'><number>1</number></property>"
    "</widget></widget></widget></ui>";

/// The preview outlives it.
class PreviewWindow {
public:
    PreviewWindow(PagePreview& preview, int height) : preview_(preview) {
        const QString contents = Folder().filePath("Bench.plugin/Contents");
        QDir().mkpath(contents + "/Resources");
        Write(contents + "/Info.plist",
              "<plist version='1.0'><dict><key>CFBundleIdentifier</key><string>bench</string>"
              "</dict></plist>");
        Write(contents + "/Resources/Panel.ui", kInterface);
        const auto path = Owned<CFStringRef>::Adopt(
            CFStringCreateFromUTF8(Folder().filePath("Bench.plugin").toStdString()));
        const auto url = Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(nullptr, path, true));
        bundle_ = Owned<CFBundleRef>::Adopt(CFBundleCreate(nullptr, url));
        ControlRef control = nullptr;
        if (CreateNibReferenceWithCFBundle(bundle_, CFSTR("Panel"), &nib_) != noErr ||
            CreateWindowFromNib(nib_, CFSTR("Window"), &window_) != noErr ||
            GetControlByID(window_, {'KPDE', 1}, &control) != noErr)
            throw std::runtime_error("the window cannot be made");
        const EventTypeSpec draw = {kEventClassControl, kEventControlDraw};
        InstallControlEventHandler(control, &PreviewWindow::draw, 1, &draw, this, nullptr);
        preview_.setControl(control);
        QWidget* const window = WidgetFromWindow(window_);
        window->resize(static_cast<int>(height * kPageWidth / kPageHeight), height);
        WidgetFromControl(control)->setGeometry(window->rect());
        window->show();
        QCoreApplication::processEvents();
    }
    ~PreviewWindow() {
        preview_.setControl(nullptr);
        DisposeWindow(window_);
        DisposeNibReference(nib_);
    }
    PreviewWindow(const PreviewWindow&) = delete;
    PreviewWindow& operator=(const PreviewWindow&) = delete;

    /// Returns when the drawing of the change is on the screen: nothing else repaints the window.
    template <typename Change>
    void show(Change change) {
        isShown_ = false;
        change();
        while (!isShown_) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    static OSStatus draw(EventHandlerCallRef, EventRef event, void* self) {
        auto& window = *static_cast<PreviewWindow*>(self);
        window.isShown_ = true;
        return window.preview_.draw(event);
    }

    PagePreview& preview_;
    Owned<CFBundleRef> bundle_;
    IBNibRef nib_ = nullptr;
    WindowRef window_ = nullptr;
    bool isShown_ = false;
};

}  // namespace kalmo::bench
