// Ticket keys that two rooms use, and the creators that items are written with.
#pragma once

#include "foundation/string.h"

#define kOrientationKey CFSTR("com.apple.print.PageFormat.PMOrientation")
#define kJobTypeKey CFSTR("com.kalmo.print.JobType")
#define kBookletLayoutKey CFSTR("com.kalmo.print.BookletLayout")
#define kBookletForceNewSizeKey CFSTR("com.kalmo.print.BookletForceNewSize")
#define kJobLevelStockKey CFSTR("com.kalmo.print.JobLevelStock")
#define kFaxOptionsKey CFSTR("com.kalmo.print.FaxOptions")
#define kFaxRecipientListKey CFSTR("com.kalmo.print.FaxRecipientList")
#define kInvertImageOptionsKey CFSTR("com.kalmo.print.InvertImageOptions")
/// The creator of the shell's own items and of the invert image options.
#define kTicketCreator CFSTR("K")
/// The creator of the special pages.
#define kPrintCreator CFSTR("com.kalmo.print")
/// The creator of the other panels' settings.
#define kPrintingManagerCreator CFSTR("com.kalmo.printingmanager")
