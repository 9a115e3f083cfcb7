// A field for one line of text with a list of texts to choose from.
#pragma once

#include <QComboBox>

#include "toolbox/text_field.h"

namespace toolbox {

/// Keys first go out as raw keys, then as a text field's inputs. What is typed stays as it is, and
/// only a choice in the list is a hit.
class ComboField final : public QComboBox {
    Q_OBJECT

public:
    explicit ComboField(QWidget* parent = nullptr);

    /// Behind those already there; the text stays.
    void append(const QString& text);

    /// With what the field holds now chosen, if it is there.
    void showPopup() override;

protected:
    bool event(QEvent* event) override;
    /// Arrow keys open the list: they would change the text unseen.
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    TextField* line_;
};

}  // namespace toolbox
