#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "print_dialog/background.h"
#include "print_dialog/command_line.h"
#include "print_dialog/job.h"
#include "print_dialog/list_printers.h"
#include "print_dialog/print_window.h"
#include "print_dialog/private_folder.h"
#include "print_dialog/remembered_settings.h"
#include "print_dialog/unattended.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// So long may a cancelled job take to go from the server.
constexpr int kCleaningUpMs = 5000;

bool HasDisplay() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* value = std::getenv(variable);
        if (value && value[0]) return true;
    }
    return false;
}

/// A display that is named but does not answer ends the program inside Qt; it ends with a line of
/// ours instead.
void RefuseWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    PrintMessage(HostText("No display"));
    _exit(kExitUsage);
}

/// Qt's remarks about a session that is not there help no script.
void KeepQuiet(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type != QtCriticalMsg && type != QtFatalMsg) return;
    PrintMessage(qFormatLogMessage(type, context, text).toStdString());
}

/// Neither a display nor the desktop's theme: those would be looked for on the session bus.
void ChooseOffscreenPlatform() {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    unsetenv("QT_QPA_PLATFORMTHEME");
    unsetenv("QT_STYLE_OVERRIDE");
}

ExitCode RunWithoutWindow(const CommandLine& commandLine, int& argc, char** argv) {
    ChooseOffscreenPlatform();
    qInstallMessageHandler(KeepQuiet);
    const QApplication application(argc, argv);
    return commandLine.listPrinters ? ListPrinters() : RunUnattended(commandLine);
}

ExitCode RunWithWindow(const CommandLine& commandLine, int& argc, char** argv) {
    if (!HasDisplay()) {
        PrintMessage(HostText("No display"));
        return kExitUsage;
    }
    const auto before = qInstallMessageHandler(RefuseWithoutDisplay);
    const QApplication application(argc, argv);
    qInstallMessageHandler(before);
    return RunPrintWindow(commandLine);
}

ExitCode Main(int argc, char** argv) {
    // Tickets, copies and temporary files may hold a passcode.
    umask(S_IRWXG | S_IRWXO);
    const auto parsed = ParseCommandLine(argc, argv);
    if (const auto* code = std::get_if<ExitCode>(&parsed)) return *code;
    const auto& commandLine = std::get<CommandLine>(parsed);
    contacts::SetSettings(RememberedAddressBook());
    const bool withWindow =
        !commandLine.noDialog && !commandLine.dryRun && !commandLine.listPrinters;
    return (withWindow ? RunWithWindow : RunWithoutWindow)(commandLine, argc, argv);
}

}  // namespace
}  // namespace kalmo

int main(int argc, char** argv) {
    const int code = kalmo::Main(argc, argv);
    const bool delivered = kalmo::WaitForDeliveries(kalmo::kCleaningUpMs);
    if (delivered && kalmo::RunningWorkers() == 0) return code;
    // A worker that waits for a dead server must not meet the end of the program's objects.
    kalmo::RemovePrivateFolders();
    std::fflush(nullptr);
    _exit(code);
}
