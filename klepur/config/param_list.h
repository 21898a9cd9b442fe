// Internal: finding and setting the parameters of a record by their type.
#ifndef KLEPUR_CONFIG_PARAM_LIST_H
#define KLEPUR_CONFIG_PARAM_LIST_H

#include <klepur/config/section_record.h>

#include <algorithm>
#include <list>
#include <string>

namespace klepur::internal {

using ParamList = std::list<SectionParam>;

/// The type of the parameter that holds a block's name, in every vocabulary.
inline constexpr int kNameType = 0;

/// The type of lines without a keyword, in every vocabulary.
inline constexpr int kRawType = -1;

/// The first parameter of a type, null when there is none. `List` is ParamList or const ParamList.
template <class List>
auto FirstOfType(List& params, int type) -> decltype(&params.front()) {
  const auto found = std::find_if(params.begin(), params.end(),
                                  [type](const SectionParam& param) { return param.type == type; });
  return found == params.end() ? nullptr : &*found;
}

/// The value of the first parameter of a type; empty when there is none.
inline std::string ValueOfType(const ParamList& params, int type) {
  const SectionParam* const param = FirstOfType(params, type);
  return param == nullptr ? std::string() : param->value;
}

/// Whether the first parameter of a type is commented out; false when there is none.
inline bool IsCommented(const ParamList& params, int type) {
  const SectionParam* const param = FirstOfType(params, type);
  return param != nullptr && param->commented;
}

/// Gives the first parameter of a type a value and a comment mark, appending it when there is none.
inline void SetParam(ParamList& params, bool commented, int type, const std::string& value) {
  if (SectionParam* const param = FirstOfType(params, type)) {
    param->value = value;
    param->commented = commented;
  } else {
    params.push_back({commented, type, value});
  }
}

}  // namespace klepur::internal

#endif
