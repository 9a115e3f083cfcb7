#include <unistd.h>

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>
#include <cstdio>
#include <ctime>
#include <fstream>

#include "print_dialog/color_scheme.h"
#include "print_dialog/print_window.h"
#include "print_dialog/stop_signals.h"
#include "print_dialog/window_texts.h"
#include "system/presence.h"
#include "toolbox/host.h"

namespace kalmo {
namespace {

long ResidentKilobytes() {
    std::ifstream pages("/proc/self/statm");
    long total = 0;
    long resident = 0;
    pages >> total >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

void PrintFirstFrame() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::printf("first-frame-ns %lld rss-kb %ld\n",
                static_cast<long long>(now.tv_sec) * 1'000'000'000 + now.tv_nsec,
                ResidentKilobytes());
    std::fflush(stdout);
}

/// Texts of Qt's own windows, the file dialog above all, in the language of ours.
void TranslateQt(QTranslator& translator) {
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    const QString language = QString::fromStdString(WindowLanguages().front());
    if (translator.load(QLocale(language), "qtbase", "_", folder)) {
        QCoreApplication::installTranslator(&translator);
    }
}

HelpViewerTexts HelpTexts() {
    return {.title = WindowText("Help window title"),
            .page = WindowText("Help window page"),
            .back = WindowText("Help window back"),
            .forward = WindowText("Help window forward"),
            .contents = WindowText("Help window contents")};
}

void SetUpApplication() {
    QApplication::setApplicationName("kalmo-print");
    QGuiApplication::setDesktopFileName("com.kalmo.print");
    QApplication::setStyle("Fusion");
    InstallPresence(WindowPresence(HelpTexts()));
    InstallWheelGuard();
}

}  // namespace

ExitCode RunPrintWindow(const CommandLine& commandLine) {
    SetUpApplication();
    QTranslator translator;
    ColorScheme colors(commandLine.colorScheme);
    PrintWindow window(commandLine);
    if (const ExitCode code = window.prepare(); code != kExitDone) return code;
    QObject::connect(&window, &PrintWindow::firstPainted, &window, [&] {
        if (commandLine.printFirstFrame) {
            PrintFirstFrame();
            QCoreApplication::quit();
            return;
        }
        // What can wait until there is something to see.
        QApplication::setWindowIcon(QIcon(":/kalmo-print/kalmo-print.svg"));
        TranslateQt(translator);
        colors.followDesktop();
        window.findPrinters();
    });
    const StopSignals stop([&window] { window.stop(); });
    window.show();
    QApplication::exec();
    return commandLine.printFirstFrame ? kExitDone : window.exitCode();
}

}  // namespace kalmo
