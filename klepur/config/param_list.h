// Internal: finding and setting the parameters of a record by their type.
#ifndef KLEPUR_CONFIG_PARAM_LIST_H
#define KLEPUR_CONFIG_PARAM_LIST_H

#include <algorithm>
#include <string>

namespace klepur::internal {

/// The type of the parameter that holds a block's name, in every vocabulary.
inline constexpr int kNameType = 0;

/// The type of lines without a keyword, in every vocabulary.
inline constexpr int kRawType = -1;

// `List` is the list of parameters in a SectionRecord, of either vocabulary.

/// The first parameter of a type, null when there is none; constant when the list is.
template <class List>
auto FirstOfType(List& params, int type) -> decltype(&params.front()) {
  const auto found = std::find_if(params.begin(), params.end(),
                                  [type](const auto& param) { return param.type == type; });
  return found == params.end() ? nullptr : &*found;
}

/// The value of the first parameter of a type; empty when there is none.
template <class List>
std::string ValueOfType(const List& params, int type) {
  const auto* const param = FirstOfType(params, type);
  return param == nullptr ? std::string() : param->value;
}

/// Whether the first parameter of a type is commented out; false when there is none.
template <class List>
bool IsCommented(const List& params, int type) {
  const auto* const param = FirstOfType(params, type);
  return param != nullptr && param->commented;
}

/// Gives the first parameter of a type a value and a comment mark, appending it when there is none.
template <class List>
void SetParam(List& params, bool commented, int type, const std::string& value) {
  if (auto* const param = FirstOfType(params, type)) {
    param->value = value;
    param->commented = commented;
  } else {
    params.push_back({commented, type, value});
  }
}

}  // namespace klepur::internal

#endif
