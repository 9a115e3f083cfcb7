// The row "Settings:": which stored settings the window began with, and a menu of what can be done
// with them.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QToolButton>
#include <QWidget>
#include <optional>
#include <vector>

#include "print_dialog/background.h"
#include "print_dialog/presets.h"

namespace kalmo {

/// The button beside the list of presets, and the list.
class PresetChoice final : public QWidget {
    Q_OBJECT
public:
    explicit PresetChoice(QWidget* parent);

    /// Stands beside this widget, in its parent, where a label can name it.
    [[nodiscard]] QComboBox* list() const { return list_; }

    /// What this queue (empty: none) was last used with, the site's start settings and the presets
    /// are looked for by a worker. The choice stays as long as its file is there.
    void load(const std::string& queue);
    /// Without a signal. Nothing: settings that are stored nowhere.
    void show(const std::optional<Preset>& preset);
    void showPrintersDefaults();

    [[nodiscard]] const std::vector<Preset>& presets() const { return presets_; }

Q_SIGNALS:
    void presetChosen(const kalmo::Preset& preset);
    void printersDefaultsChosen();
    void saveWanted();
    void renameWanted(const kalmo::Preset& preset);
    void deleteWanted(const kalmo::Preset& preset);

private:
    struct Stored {
        std::optional<Preset> last, start;
        std::vector<Preset> presets;
    };
    void createMenu();
    void add(const QString& text, const Preset& preset);
    void fill(const Stored& stored);
    void select(const QString& file);
    /// The own preset that is chosen.
    [[nodiscard]] std::optional<Preset> ownPreset() const;

    QComboBox* list_;
    QToolButton* defaults_;
    QToolButton* commands_;
    QAction* rename_ = nullptr;
    QAction* delete_ = nullptr;

    std::vector<Preset> rows_;     // those of the list, by their files
    std::vector<Preset> presets_;  // the named ones among them
    QString shown_;                // the file of the choice; empty: the printer's defaults
    int loads_ = 0;
    AnswerBox answers_;  // last: goes first, so that no answer meets half an object
};

}  // namespace kalmo
