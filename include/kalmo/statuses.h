// The statuses that travel between platform, plug-in and host.
#pragma once

#include "kalmo/types.h"

inline constexpr OSStatus noErr = 0;
inline constexpr OSStatus paramErr = -50;
inline constexpr OSStatus ioErr = -36;
inline constexpr OSStatus fnfErr = -43;
inline constexpr OSStatus memFullErr = -108;
/// A handler that answers so lets the next handler, and at last the control itself, see the event.
inline constexpr OSStatus eventNotHandledErr = -9874;
inline constexpr OSStatus eventParameterNotFoundErr = -9870;
inline constexpr OSStatus kPMInvalidPDEContext = -9530;
inline constexpr OSStatus kPMInvalidPrintSession = -30879;
inline constexpr OSStatus kPMKeyNotFound = -9589;
inline constexpr OSStatus kPMItemIsLocked = -9585;
inline constexpr OSStatus kPMInvalidTicket = -30880;
inline constexpr OSStatus controlNotFoundErr = -30584;
inline constexpr OSStatus nibNotFoundErr = -10960;
/// What stops the Print dialog from closing when a check of the pane refuses the job.
inline constexpr OSStatus kKalmoKeepDialogOpen = -12345678;
/// No such interface: 0x80000004 as a signed number.
inline constexpr OSStatus kENoInterface = static_cast<OSStatus>(0x80000004);
