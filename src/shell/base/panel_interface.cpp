#include "shell/base/panel_interface.h"

#include <cstdlib>

#include "shell/base/texts.h"

namespace kalmo {

OSStatus CreatePanelInterface(const PDEInterfaceTable& operations, PDEInterfaceObject** out) {
    *out = nullptr;
    auto* object = static_cast<PDEInterfaceObject*>(std::malloc(sizeof(PDEInterfaceObject)));
    auto* table = static_cast<PDEInterfaceTable*>(std::malloc(sizeof(PDEInterfaceTable)));
    if (!object || !table) {
        std::free(object);
        std::free(table);
        return noErr;
    }
    new (table) PDEInterfaceTable(operations);
    table->Retain = nullptr;
    table->Release = nullptr;
    table->GetAPIVersion = nullptr;
    *out = new (object) PDEInterfaceObject{table};
    return noErr;
}

void DisposePanelInterface(PDEInterfaceObject* object) {
    if (!object) return;
    std::free(object->table);
    std::free(object);
}

void AnswerPanelPrologue(PanelContext& context, CFStringRef titleKey, OSType* creator,
                         CFStringRef* kind, CFStringRef* title, UInt32* maximumWidth,
                         UInt32* maximumHeight) {
    context.bundle = CFBundleGetBundleWithIdentifier(CFSTR(kKalmoBundleIdentifier));
    context.title = CopyTextIfPresent(context.bundle, titleKey);
    *creator = 'Kshl';
    *kind = CFSTR("com.kalmo.print.pde.kalmofeatureskind");
    if (context.title) *title = context.title;
    *maximumWidth = 0;
    *maximumHeight = 0;
}

}  // namespace kalmo
