#include <klepur/framework/name_match.h>

#include <cstring>

bool Condition1(const CfSection& a, const CfSection& b) {
  return std::strcmp(a.GetName(), b.GetName()) == 0;
}

bool Condition2(const CfSection& a, const CfSection& b) {
  return Condition1(a, b);
}

bool compare(const CfSection& a, const CfSection& b) {
  return Condition1(a, b);
}
