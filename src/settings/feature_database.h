// The device profile: features, their properties, and the syntax and defaults of their values.
//
// Public with C linkage, for panels outside the plug-in. Everything borrowed stays valid until
// KDPFinalize. Null arguments answer null, false or an empty array.
#pragma once

#include "foundation/collections.h"

// Nothing thrown crosses the boundary: without memory for an answer the program ends.
#define KALMO_QUERY extern "C" [[gnu::visibility("default")]]

/// Loads "Device Profile.plist" of the plug-in's resources; silent on failure, nothing when loaded.
KALMO_QUERY void KDPInitialize() noexcept;
KALMO_QUERY void KDPFinalize() noexcept;
KALMO_QUERY CFDictionaryRef KDPGetFeature(CFStringRef name) noexcept;
/// Feature dictionaries whose property equals; `value` null: that have it at all. The caller
/// releases the array.
KALMO_QUERY CFArrayRef KDPGetFeaturesWithPropertyAndValue(CFStringRef property,
                                                          CFTypeRef value) noexcept;
KALMO_QUERY CFArrayRef KDPGetFeaturesWithProperty(CFStringRef property) noexcept;
/// `form` is "Keyword", "Name" or "Number".
KALMO_QUERY CFDictionaryRef KDPGetFeatureSyntax(CFDictionaryRef feature, CFStringRef form) noexcept;
KALMO_QUERY CFTypeRef KDPGetFeatureProperty(CFDictionaryRef feature, CFStringRef property) noexcept;
/// Keyword dictionaries (not names) whose property equals. The caller releases the array.
KALMO_QUERY CFArrayRef KDPGetKeywordsWithPropertyAndValue(CFDictionaryRef feature,
                                                          CFStringRef property,
                                                          CFTypeRef value) noexcept;
/// True with the form and the lent default, in the order Keyword, Name, Number.
KALMO_QUERY Boolean KDPGetFeatureDefaultValue(CFDictionaryRef feature, CFStringRef* form,
                                              CFTypeRef* value) noexcept;
