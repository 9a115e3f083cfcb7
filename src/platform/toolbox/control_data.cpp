// What users of a control leave beside it: properties, control data, and its action.
#include <algorithm>
#include <cstring>

#include "toolbox/control_state.h"
#include "toolbox/controls.h"

using namespace toolbox;

namespace {

template <typename Key>
OSStatus Keep(QHash<Key, QByteArray>& kept, Key key, UInt32 size, const void* data) {
    if (size > 0 && !data) return paramErr;
    kept.insert(key, QByteArray(static_cast<const char*>(data), qsizetype{size}));
    return noErr;
}

struct Target {
    UInt32 size;
    UInt32* actualSize;
    void* data;
};

template <typename Key>
OSStatus Read(const QHash<Key, QByteArray>& kept, Key key, const Target& target) {
    if (target.size > 0 && !target.data) return paramErr;
    const auto entry = kept.find(key);
    if (entry == kept.end()) return kPMKeyNotFound;
    const auto actual = static_cast<UInt32>(entry->size());
    const UInt32 copied = std::min(target.size, actual);
    if (copied > 0) std::memcpy(target.data, entry->constData(), copied);
    if (target.actualSize) *target.actualSize = actual;
    return noErr;
}

}  // namespace

OSStatus SetControlProperty(ControlRef control, OSType creator, OSType tag, UInt32 size,
                            const void* data) {
    if (!control) return paramErr;
    return Keep(StateOf(*ToWidget(control)).properties, PairKey(creator, tag), size, data);
}

OSStatus GetControlProperty(ControlRef control, OSType creator, OSType tag, UInt32 size,
                            UInt32* actualSize, void* data) {
    if (!control) return paramErr;
    return Read(StateOf(*ToWidget(control)).properties, PairKey(creator, tag),
                {size, actualSize, data});
}

OSStatus RemoveControlProperty(ControlRef control, OSType creator, OSType tag) {
    if (!control) return paramErr;
    ControlState* const state = FindState(*ToWidget(control));
    return state && state->properties.remove(PairKey(creator, tag)) ? noErr : kPMKeyNotFound;
}

OSStatus GetControlData(ControlRef control, OSType tag, UInt32 size, UInt32* actualSize,
                        void* data) {
    if (!control) return paramErr;
    return Read(StateOf(*ToWidget(control)).data, tag, {size, actualSize, data});
}

OSStatus SetControlData(ControlRef control, OSType tag, UInt32 size, const void* data) {
    if (!control) return paramErr;
    return Keep(StateOf(*ToWidget(control)).data, tag, size, data);
}

void SetControlAction(ControlRef control, ControlActionProc action) {
    if (control) StateOf(*ToWidget(control)).action = action;
}
