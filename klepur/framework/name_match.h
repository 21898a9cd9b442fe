// Whether two sections have the same name: predicates for TreeNode::FindIf.
#ifndef KLEPUR_FRAMEWORK_NAME_MATCH_H
#define KLEPUR_FRAMEWORK_NAME_MATCH_H

#include <klepur/export.h>
#include <klepur/framework/section.h>

/// True when the names are equal byte for byte: "Host a" is not "host a". The lines play no part.
KLEPUR_EXPORT bool Condition1(const CfSection& a, const CfSection& b);

/// The same test. The lookups of both configuration classes find what FindIf finds with it.
KLEPUR_EXPORT bool Condition2(const CfSection& a, const CfSection& b);

/// The same test, for callers' own searches: no lookup calls it.
KLEPUR_EXPORT bool compare(const CfSection& a, const CfSection& b);

#endif
