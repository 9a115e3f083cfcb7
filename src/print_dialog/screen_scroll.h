// Room for a part of the window that may be higher or wider than a small screen.
#pragma once

#include <QScrollArea>

namespace kalmo {

/// As large as its contents; scrolls only where the screen has no room for that.
class ScreenScroll final : public QScrollArea {
    Q_OBJECT
public:
    explicit ScreenScroll(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] QSize sizeOfContents() const;
};

}  // namespace kalmo
