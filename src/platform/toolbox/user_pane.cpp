#include "toolbox/user_pane.h"

namespace toolbox {

UserPane::UserPane(QWidget* parent) : QWidget(parent) {}

}  // namespace toolbox
