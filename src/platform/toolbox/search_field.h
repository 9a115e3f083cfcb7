// A text field to search in.
#pragma once

#include "toolbox/text_field.h"

namespace toolbox {

/// With a symbol in front and, while it holds text, a button that takes the text away; so does
/// Escape. To the handlers that is an input as any other.
class SearchField final : public TextField {
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void empty();
};

}  // namespace toolbox
