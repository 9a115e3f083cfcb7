// The machine and its user: names, addresses, version, help books.
#pragma once

#include "foundation/bundle.h"
#include "foundation/string.h"
#include "kalmo/statuses.h"

/// System versions as the platform counts them: 0x1050 is 10.5.
inline constexpr SInt32 kSystemVersion10_5 = 0x1050;

#pragma GCC visibility push(default)

/// The login name of the process's real user; null without a passwd entry. The caller releases it.
[[nodiscard]] CFStringRef CopyConsoleUser();
/// The pretty host name where the machine has one, else the host name. The caller releases it.
[[nodiscard]] CFStringRef CopyComputerName();

/// The configuration store of a named client. Two keys are known:
/// "State:/Network/Global/IPv4" (dictionary with "PrimaryInterface") and
/// "State:/Network/Interface/NAME/IPv4" (dictionary with the array "Addresses").
/// Null for any other key or when unknown. The caller releases it.
[[nodiscard]] CFTypeRef CopyDynamicStoreValue(CFStringRef client, CFStringRef key);

/// 10.5, unless a test has set another.
[[nodiscard]] SInt32 GetSystemVersion();
void SetSystemVersionForTests(SInt32 version);

/// Registers the bundle's help book (Info.plist: CFBundleHelpBookName, CFBundleHelpBookFolder). The
/// folder lies in an xx.lproj of the user's languages. fnfErr when it is missing.
OSStatus AHRegisterHelpBook(CFBundleRef bundle);
/// Opens `page` of the book (null: its first page, "index.htm"), or `anchor` of that page. fnfErr
/// when the book is not registered or the page does not exist; else what the Presence answers.
OSStatus AHGotoPage(CFStringRef book, CFStringRef page, CFStringRef anchor);
/// Opens the page that holds <a name="anchor"> or id="anchor". fnfErr when no page has it.
OSStatus AHLookupAnchor(CFStringRef book, CFStringRef anchor);

#pragma GCC visibility pop
