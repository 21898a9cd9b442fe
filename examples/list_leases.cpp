// Prints the leases of a DHCPv6 server's leases file as a table.
//
//     list_leases FILE
#include <klepur/klepur.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <list>
#include <string>

namespace {

struct Column {
  const char* title;
  std::string _Dhcpv6LeaseStore::*field;
};

constexpr Column kColumns[] = {
    {"ADDRESS", &_Dhcpv6LeaseStore::address},
    {"STATE", &_Dhcpv6LeaseStore::bindingState},
    {"PREFERRED", &_Dhcpv6LeaseStore::preferredLife},
    {"MAX", &_Dhcpv6LeaseStore::maxLife},
    {"ENDS", &_Dhcpv6LeaseStore::ends},
    {"CLTT", &_Dhcpv6LeaseStore::cltt},
    {"DUID", &_Dhcpv6LeaseStore::duid},
};

std::string Cell(const _Dhcpv6LeaseStore& lease, const Column& column) {
  const std::string& text = lease.*(column.field);
  return text.empty() ? "-" : text;
}

std::size_t Width(const std::list<_Dhcpv6LeaseStore>& leases, const Column& column) {
  std::size_t width = std::string(column.title).size();
  for (const _Dhcpv6LeaseStore& lease : leases) {
    width = std::max(width, Cell(lease, column).size());
  }
  return width;
}

void PrintTable(const std::list<_Dhcpv6LeaseStore>& leases) {
  std::string header;
  std::list<std::string> rows(leases.size());
  for (const Column& column : kColumns) {
    const std::size_t width = Width(leases, column) + 2;
    const auto append = [width](std::string& row, std::string cell) {
      cell.resize(width, ' ');
      row += cell;
    };
    append(header, column.title);
    auto row = rows.begin();
    for (const _Dhcpv6LeaseStore& lease : leases) append(*row++, Cell(lease, column));
  }
  rows.push_front(header);
  for (const std::string& row : rows) {
    std::cout << row.substr(0, row.find_last_not_of(' ') + 1) << "\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: list_leases FILE\n";
    return EXIT_FAILURE;
  }
  // Nothing tells a file that cannot be read from one without leases; the system log does.
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(argv[1], leases);
  PrintTable(leases);
  std::cout << leases.size() << " leases\n";
  return EXIT_SUCCESS;
}
