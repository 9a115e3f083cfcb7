// From the window's Print button to the end of the job.
#include "print_dialog/print_window.h"
#include "print_dialog/remembered_settings.h"
#include "print_dialog/summary_dialog.h"
#include "print_dialog/window_texts.h"

namespace kalmo {

void PrintWindow::updatePrint() {
    summary_->setEnabled(!job_ && form_->isValid());
    const Destination& destination = form_->destination()->current();
    const bool ready = destination.kind == Destination::Kind::folder ||
                       (openingQueue_.empty() && host_.printer().name == destination.queue);
    print_->setEnabled(ready && !destinationOpen_ && !job_ && form_->isValid() &&
                       document_.state() == Document::State::ready);
}

JobRequest PrintWindow::jobRequest() const {
    const Destination& destination = form_->destination()->current();
    JobRequest request{.document = printed_->path(),
                       .name = document_.name(),
                       .layout = SheetLayout(form_->paper(), form_->settings(), document_.pages())};
    if (destination.kind == Destination::Kind::queue) {
        request.queue = destination.queue;
    } else {
        request.folder = form_->destination()->folder();
    }
    return request;
}

void PrintWindow::print() {
    sendJob([this] { return conflicts_->approve(); });
}

void PrintWindow::sendJob(std::function<bool()> approve) {
    if (!print_->isEnabled()) return;
    bar_->clear();
    conflicts_->clear();
    host_.apply(form_->settings());
    printed_ = document_.copy();
    const QString destination = form_->destination()->current().text;
    job_ = StartJob(host_, jobRequest(),
                    {.approve = std::move(approve),
                     .progress =
                         [this, destination](JobStage stage, int percent) {
                             bar_->showProgress(stage, percent, destination);
                         },
                     .finished = [this](const JobResult& result) { finishJob(result); }});
    if (!job_) return;  // the pane or the notice of conflicts has said why
    setSending(true);
    bar_->showProgress(JobStage::preparing, 0, destination);
}

void PrintWindow::showSummary() {
    host_.apply(form_->settings());
    // Without a Sync back: what the pane shows stays as it is.
    host_.sync(kSyncToTicket);
    const QString note = host_.hasPane() ? QString() : WindowText("Summary without extension");
    SummaryDialog(SummarizeJob(host_, document_.pages()), note, this).exec();
}

void PrintWindow::setSending(bool sending) {
    if (sending) {
        focusBefore_ = focusWidget();
        nameCancel(WindowText("Cancel"), {});
    }
    body_->setEnabled(!sending);
    help_->setEnabled(!sending);
    panels_->setEnabled(!sending);
    updatePrint();
    if (sending) {
        cancel_->setFocus();
    } else if (focusBefore_) {
        focusBefore_->setFocus();
    }
}

void PrintWindow::finishJob(const JobResult& result) {
    job_.reset();
    setSending(false);
    bar_->showFault(QString::fromStdString(result.message));
    if (stopping_) QDialog::reject();
    if (result.end != JobResult::End::printed) return;
    exitCode_ = kExitDone;
    presets_->jobPrinted();
    const Destination& destination = form_->destination()->current();
    if (destination.kind == Destination::Kind::queue) RememberPrinter(destination.queue);
    if (!commandLine_.writeTicket.empty()) {
        const auto written = WriteTicket(commandLine_.writeTicket, host_);
        if (!written) {
            PrintMessage(written.error);
            exitCode_ = kExitFailed;
        }
    }
    if (result.differences.empty() || stopping_) return accept();
    showDifferences(result.differences);
}

/// The job is printed; the window stays to say how, and for another try.
void PrintWindow::showDifferences(const std::vector<std::string>& lines) {
    QStringList shown;
    for (const auto& line : lines) shown += QString::fromStdString(line);
    bar_->showDifferences(shown);
    nameCancel(WindowText("Close"), bar_->differences());
    // Return closes the window; it does not print the same again.
    cancel_->setAutoDefault(true);
    cancel_->setFocus();
}

void PrintWindow::nameCancel(const QString& text, const QString& description) {
    cancel_->setText(text);
    cancel_->setAccessibleDescription(description);
    cancel_->setAutoDefault(false);
}

}  // namespace kalmo
