// The seven operations of a panel: what every panel does the same way, around what is its own.
//
// A panel derives its context from PanelContext, gives its parts in one table, and exports an
// interface function that calls CreatePanel with it. Nothing thrown leaves an operation.
#pragma once

#include <new>

#include "settings/ppd_access.h"
#include "settings/ticket.h"
#include "shell/base/panel_interface.h"

namespace kalmo {

/// What a panel adds. Those marked "may be null" are left out where there is nothing to do.
template <typename Context>
struct PanelParts {
    const char* titleKey;
    /// After memory was allocated: what the record starts with. May be null.
    void (*start)(Context& context);
    /// Pane, session and PPD are known; the first reading follows. May be null.
    void (*initialize)(Context& context);
    /// Ticket to context and, where they exist, to controls; and back. The ticket's last status.
    OSStatus (*read)(Context& context, PMTicketRef ticket);
    OSStatus (*write)(Context& context, PMTicketRef ticket);
    /// Builds the controls at the first Open, and sets `opened`.
    OSStatus (*build)(Context& context);
    /// At each later Open; at each Close. May be null.
    void (*openAgain)(Context& context);
    void (*close)(Context& context);
    /// Takes handlers away before the context goes. May be null.
    void (*finish)(Context& context);
};

template <typename Context, const PanelParts<Context>& parts>
struct PanelOperations {
    static Context& Record(PDEContext context) { return *static_cast<Context*>(context); }

    static void CallIfThere(void (*part)(Context&), PDEContext context) {
        if (part) part(Record(context));
    }

    static OSStatus _Prologue(PDEContext* context, OSType* creator, CFStringRef* kind,
                              CFStringRef* title, UInt32* maximumWidth, UInt32* maximumHeight) {
        return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
            auto* made = new (std::nothrow) Context;
            *context = made;
            if (!made) return kPMInvalidPDEContext;
            CallIfThere(parts.start, made);
            AnswerPanelPrologue(*made, CFStringMakeConstant(parts.titleKey), creator, kind, title,
                                maximumWidth, maximumHeight);
            return noErr;
        });
    }

    static OSStatus _Initialize(PDEContext context, UInt32*, void*, ControlRef pane,
                                PMPrintSession session) {
        return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
            if (!session || !context) return kPMInvalidPDEContext;
            Record(context).pane = pane;
            Record(context).session = session;
            Record(context).ppd = PPDGetCurrent();
            CallIfThere(parts.initialize, context);
            return _Sync(context, session, kSyncToUI);
        });
    }

    static OSStatus _Sync(PDEContext context, PMPrintSession session, Boolean direction) {
        return WithoutExceptions(kPMInvalidPrintSession, [&]() -> OSStatus {
            if (!session || !context) return kPMInvalidPrintSession;
            PMTicketRef ticket = kPMNoTicket;
            const OSStatus status = GetTicketFromSession(session, kPMPrintSettingsTicket, &ticket);
            if (status != noErr) return status;
            Record(context).session = session;
            return direction == kSyncToTicket ? parts.write(Record(context), ticket)
                                              : parts.read(Record(context), ticket);
        });
    }

    static OSStatus _GetSummaryText(PDEContext context, CFArrayRef* titles, CFArrayRef* values) {
        *titles = nullptr;
        *values = nullptr;
        return context ? noErr : kPMInvalidPDEContext;
    }

    static OSStatus _Open(PDEContext context) {
        return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
            if (!context) return kPMInvalidPDEContext;
            if (!Record(context).opened) return parts.build(Record(context));
            CallIfThere(parts.openAgain, context);
            return kPMInvalidPDEContext;
        });
    }

    static OSStatus _Close(PDEContext context) {
        return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
            if (!context) return kPMInvalidPDEContext;
            CallIfThere(parts.close, context);
            return noErr;
        });
    }

    static OSStatus _Terminate(PDEContext context, OSStatus) {
        return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
            if (!context) return kPMInvalidPDEContext;
            CallIfThere(parts.finish, context);
            delete &Record(context);
            return noErr;
        });
    }
};

/// For a panel's interface function.
template <typename Context, const PanelParts<Context>& parts>
OSStatus CreatePanel(PDEInterfaceObject** out) {
    using Operations = PanelOperations<Context, parts>;
    return CreatePanelInterface({.Prologue = Operations::_Prologue,
                                 .Initialize = Operations::_Initialize,
                                 .Sync = Operations::_Sync,
                                 .GetSummaryText = Operations::_GetSummaryText,
                                 .Open = Operations::_Open,
                                 .Close = Operations::_Close,
                                 .Terminate = Operations::_Terminate},
                                out);
}

}  // namespace kalmo
