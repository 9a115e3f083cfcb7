// Asks for the name of a preset, and says beside it why a name cannot be.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

#include "print_dialog/background.h"
#include "print_dialog/presets.h"

namespace kalmo {

/// True only when the button that destroys was pressed itself.
[[nodiscard]] bool AskToDestroy(QWidget* parent, const QString& question, const QString& button);

class PresetNameDialog final : public QDialog {
    Q_OBJECT
public:
    /// What OK does with the name, on a worker. Its failure is shown, and the dialog stays.
    using Act = std::function<Outcome(const std::string& name)>;

    PresetNameDialog(const QString& title, const QString& name, Act act, QWidget* parent);

    /// OK asks before one of these is replaced. The site's cannot be: the user's stands before it.
    void askBeforeReplacing(const std::vector<Preset>& presets) { presets_ = presets; }
    [[nodiscard]] std::string name() const;
    void accept() override;

private:
    void showFault(const std::string& fault);
    [[nodiscard]] bool mayReplace();

    const Act act_;
    std::vector<Preset> presets_;
    QLineEdit* name_;
    QLabel* fault_;
    QPushButton* ok_ = nullptr;
    AnswerBox answers_;  // last: goes first, so that no answer meets half an object
};

}  // namespace kalmo
