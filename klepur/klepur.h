// All of klepur.
#ifndef KLEPUR_KLEPUR_H
#define KLEPUR_KLEPUR_H

#include <klepur/check/check_rules.h>
#include <klepur/check/checker.h>
#include <klepur/check/edit_check.h>
#include <klepur/config4/dhcp_config_file.h>
#include <klepur/config6/dhcpv6_config_file.h>
#include <klepur/document/document.h>
#include <klepur/framework/file_iterator.h>
#include <klepur/framework/file_utility.h>
#include <klepur/framework/lexer.h>
#include <klepur/framework/name_match.h>
#include <klepur/framework/parser_base.h>
#include <klepur/framework/section.h>
#include <klepur/framework/section_entry.h>
#include <klepur/framework/section_holder.h>
#include <klepur/framework/stream_iterator.h>
#include <klepur/framework/tree.h>
#include <klepur/language/words.h>
#include <klepur/leases/lease_store.h>
#include <klepur/leases/leases_parser.h>
#include <klepur/network/address.h>
#include <klepur/network/hardware_address.h>
#include <klepur/network/host_identifier.h>
#include <klepur/network/identifier.h>
#include <klepur/network/network.h>
#include <klepur/network/prefix.h>
#include <klepur/network/prefix_range.h>
#include <klepur/network/range.h>
#include <klepur/parser/dhcp_parser.h>
#include <klepur/rewrite/rewrite_losses.h>
#include <klepur/storage/save_config.h>
#include <klepur/storage/save_options.h>
#include <klepur/storage/save_report.h>
#include <klepur/storage/stored_file.h>
#include <klepur/storage/unified_diff.h>

#endif
