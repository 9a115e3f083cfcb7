// Ticket keys that two rooms use, and the creators that items are written with.
#pragma once

#include "foundation/string.h"

#define kJobTypeKey CFSTR("com.kalmo.print.JobType")
#define kInvertImageOptionsKey CFSTR("com.kalmo.print.InvertImageOptions")
/// The creator of the shell's own items and of the invert image options.
#define kTicketCreator CFSTR("K")
