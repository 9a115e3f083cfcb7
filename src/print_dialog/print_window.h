// The Print dialog: form and preview of the document, and the printer's own pane.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <QPushButton>
#include <functional>
#include <memory>

#include "print_dialog/command_line.h"
#include "print_dialog/conflict_notice.h"
#include "print_dialog/document.h"
#include "print_dialog/extras_button.h"
#include "print_dialog/job.h"
#include "print_dialog/job_input.h"
#include "print_dialog/pane_view.h"
#include "print_dialog/preset_commands.h"
#include "print_dialog/preview.h"
#include "print_dialog/print_job_host.h"
#include "print_dialog/printers.h"
#include "print_dialog/sending_bar.h"
#include "print_dialog/settings_form.h"

namespace kalmo {

/// How the extension hears that a dialog ended without printing.
inline constexpr OSStatus kNotPrinted = kPMInvalidPDEContext;

/// Shows the dialog and runs until it is closed. A QApplication must be running. What is wrong with
/// the command line goes to standard error before any window.
[[nodiscard]] ExitCode RunPrintWindow(const CommandLine& commandLine);

class PrintWindow final : public QDialog {
    Q_OBJECT
public:
    explicit PrintWindow(const CommandLine& commandLine);
    ~PrintWindow() override;

    /// Opens what the command line names and needs no server. Not kExitDone: it cannot be, and
    /// standard error says why.
    [[nodiscard]] ExitCode prepare();
    /// Asks the print server for its printers.
    void findPrinters();
    /// How it ended; cancelled until something was printed.
    [[nodiscard]] ExitCode exitCode() const { return exitCode_; }
    /// Takes the place of the document shown, once no dialog of the pane is open.
    void openDocument(const std::filesystem::path& file);

    /// Closes at once, or as soon as a job on its way is called back.
    void stop();
    /// Escape, the Cancel button and closing: stops the sending, else the dialog.
    void reject() override;
    void setVisible(bool visible) override;

Q_SIGNALS:
    /// The first frame is on the screen.
    void firstPainted();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void createWidgets();
    QLayout* createButtons();
    void connectWidgets();
    void chooseDirection();
    void rememberSize() const;

    void listPrinters();
    /// Where the server did not answer: it may be there now.
    void findPrintersAgain();
    void showPrinters(const PrinterList& list);
    void chooseDestination();
    void openQueue(const std::string& queue);
    void usePrinter(const PrinterDescription& found);
    /// What the user has set before there was a printer stays.
    void keepTyped(const JobSettings& typed);
    /// The form's rows follow the tickets.
    void showHostSettings();
    void openPane();
    void presetApplied();
    void closePane();
    void changePane(const std::function<void()>& change);
    void whenPaneIsFree(const std::function<void()>& act);
    void changePanels();

    void askForDocument();
    void showDocument(const std::filesystem::path& file);
    void documentChanged();
    void settingsChanged();
    void updatePrint();

    void print();
    /// As Print does, of what `approve` lets through.
    void sendJob(std::function<bool()> approve);
    [[nodiscard]] JobRequest jobRequest() const;
    void setSending(bool sending);
    void nameCancel(const QString& text, const QString& description);
    void finishJob(const JobResult& result);
    void showDifferences(const std::vector<std::string>& lines);
    void showHelp();
    void showSummary();

    const CommandLine commandLine_;
    ExitCode exitCode_ = kExitCancelled;
    InputDocument input_;
    PrintJobHost host_;
    Printers printers_;
    Document document_;

    QWidget* body_ = nullptr;
    QBoxLayout* left_ = nullptr;
    SettingsForm* form_ = nullptr;
    Preview* preview_ = nullptr;
    PaneView* pane_ = nullptr;
    ConflictNotice* conflicts_ = nullptr;
    SendingBar* bar_ = nullptr;
    std::unique_ptr<PresetCommands> presets_;
    QPushButton* help_ = nullptr;
    ExtrasButton* panels_ = nullptr;
    QPushButton* summary_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QPushButton* print_ = nullptr;

    QSize chosenSize_;  // by the user; none until then
    bool extensionLoaded_ = false;
    /// It is not settled yet where the job goes: the server's printers are not known, and nobody
    /// has named a folder.
    bool destinationOpen_ = true;
    bool painted_ = false;
    bool stopping_ = false;
    QElapsedTimer sinceListed_;  // while the server has not told its printers
    std::string openingQueue_;   // asked for, not yet answered
    std::string shownPanel_;     // of the pane before
    QPointer<QWidget> focusBefore_;
    /// The bytes being printed outlive the job's worker.
    std::shared_ptr<const PrivateCopy> printed_;
    std::unique_ptr<Job> job_;
};

}  // namespace kalmo
