// DHCPv4 or DHCPv6.
#ifndef KLEPUR_DOCUMENT_FAMILY_H
#define KLEPUR_DOCUMENT_FAMILY_H

namespace klepur {

enum class Family {
  kUnknown,  ///< Nothing in the text tells.
  kDhcp4,
  kDhcp6,
};

}  // namespace klepur

#endif
