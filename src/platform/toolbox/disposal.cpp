#include "toolbox/disposal.h"

#include "toolbox/event_way.h"

namespace toolbox {

void Dispose(QWidget& widget) {
    if (!HandlersAreRunning()) {
        delete &widget;
        return;
    }
    widget.hide();
    widget.setParent(nullptr);
    widget.deleteLater();
}

}  // namespace toolbox
