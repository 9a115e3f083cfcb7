// A bare view that holds other views.
#pragma once

#include <QWidget>

namespace toolbox {

class UserPane final : public QWidget {
    Q_OBJECT

public:
    explicit UserPane(QWidget* parent = nullptr);
};

}  // namespace toolbox
