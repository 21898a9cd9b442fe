// Internal: ConfigFile's questions about the current subnet.
#ifndef KLEPUR_CONFIG_SUBNET_QUERY_IMPL_H
#define KLEPUR_CONFIG_SUBNET_QUERY_IMPL_H

#include <klepur/config/config_file.h>
#include <klepur/config/value_scan.h>

#include <string>

namespace klepur {

template <class Vocabulary>
int ConfigFile<Vocabulary>::GetSubnet(std::string& subnet) {
  if (!IsReady() || currentSubnet == nullptr) return 0;
  subnet = internal::SubnetAddress(currentSubnet->section.GetName());
  return 1;
}

}  // namespace klepur

#endif
