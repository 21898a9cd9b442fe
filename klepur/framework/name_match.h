// Whether two sections have the same name: the predicates of every search by name.
#ifndef KLEPUR_FRAMEWORK_NAME_MATCH_H
#define KLEPUR_FRAMEWORK_NAME_MATCH_H

#include <klepur/export.h>
#include <klepur/framework/section.h>

/// True when the names are equal byte for byte: "Host a" is not "host a". The lines play no part.
KLEPUR_EXPORT bool Condition1(const CfSection& a, const CfSection& b);

/// The same test; the searches of DhcpConfigFile use this one.
KLEPUR_EXPORT bool Condition2(const CfSection& a, const CfSection& b);

/// The same test; the searches of Dhcpv6ConfigFile use this one.
KLEPUR_EXPORT bool compare(const CfSection& a, const CfSection& b);

#endif
