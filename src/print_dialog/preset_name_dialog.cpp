#include "print_dialog/preset_name_dialog.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QVBoxLayout>
#include <algorithm>

#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr int kFieldWidth = 320;

}  // namespace

bool AskToDestroy(QWidget* parent, const QString& question, const QString& button) {
    QMessageBox box(QMessageBox::Question, parent->window()->windowTitle(), question, {}, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* const destroys = box.addButton(button, QMessageBox::DestructiveRole);
    QPushButton* const keeps = box.addButton(WindowText("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(keeps);
    box.setEscapeButton(keeps);
    box.exec();
    return box.clickedButton() == destroys;
}

PresetNameDialog::PresetNameDialog(const QString& title, const QString& name, Act act,
                                   QWidget* parent)
    : QDialog(parent),
      act_(std::move(act)),
      name_(new QLineEdit(name, this)),
      fault_(CreateFaultLabel(this)) {
    setWindowTitle(title);
    name_->setMinimumWidth(kFieldWidth);
    name_->selectAll();
    auto* label = new QLabel(WindowText("Preset name:"), this);
    label->setBuddy(name_);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(name_, 1);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kRowGap);
    column->addLayout(row);
    column->addWidget(fault_);
    const auto [buttons, ok] = CreateDialogButtons(*this);
    ok_ = ok;
    column->addLayout(buttons);
    connect(name_, &QLineEdit::textChanged, this, [this] { showFault({}); });
}

std::string PresetNameDialog::name() const { return name_->text().trimmed().toStdString(); }

void PresetNameDialog::showFault(const std::string& fault) {
    ShowFault(*fault_, *name_, QString::fromStdString(fault));
}

bool PresetNameDialog::mayReplace() {
    const auto there = std::ranges::find(presets_, name(), &Preset::name);
    return there == presets_.end() || there->readOnly ||
           AskToDestroy(this, WindowText("Replace preset?", {QString::fromStdString(name())}),
                        WindowText("Replace"));
}

void PresetNameDialog::accept() {
    if (!ok_->isEnabled()) return;
    if (const auto checked = CheckPresetName(name()); !checked) return showFault(checked.error);
    if (!mayReplace()) return;
    ok_->setEnabled(false);
    StartWorker([this, name = name(), act = act_, post = answers_.post()] {
        const std::string fault = act(name).error;
        post([=, this] {
            ok_->setEnabled(true);
            fault.empty() ? QDialog::accept() : showFault(fault);
        });
    });
}

}  // namespace kalmo
