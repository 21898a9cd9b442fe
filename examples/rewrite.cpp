// Opens a DHCPv4 configuration file and saves it unedited, which makes its layout uniform.
//
//     rewrite FILE
#include <klepur/klepur.h>

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: rewrite FILE\n";
    return EXIT_FAILURE;
  }
  DhcpConfigFile file(argv[1]);
  if (!file.Open()) {
    std::cerr << "rewrite: cannot read " << argv[1] << ", see the system log\n";
    return EXIT_FAILURE;
  }
  if (!file.Save("")) {
    std::cerr << "rewrite: cannot write " << argv[1] << "\n";
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
