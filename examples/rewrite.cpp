// Reads a configuration file of either family and writes it back unedited, which makes its layout uniform.
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
  CfSectionHolder tree;
  DhcpParser parser;
  if (!parser.ParseFile(argv[1], &tree)) {
    std::cerr << "rewrite: cannot read " << argv[1] << ", see the system log\n";
    return EXIT_FAILURE;
  }
  if (!parser.FileWriter(argv[1], &tree)) {
    std::cerr << "rewrite: cannot write " << argv[1] << "\n";
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
