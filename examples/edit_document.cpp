// Edits a configuration file as it is written: a printer moves to another address, a new one is added
// beside it, and a third is commented out. Every other line stays as it is.
//
//     edit_document FILE    FILE holds hosts printer1 and printer3, as documents/printers.conf does
#include <klepur/klepur.h>

#include <cstdlib>
#include <fstream>
#include <iostream>

int main(int argc, char** argv) {
  if (argc != 2) return EXIT_FAILURE;
  try {
    klepur::Document document = klepur::Document::Read(argv[1]);
    klepur::Node printer = document.Find("host printer1");
    printer.Set("fixed-address", "10.20.0.201");
    printer.Parent().Add(
        "host printer2 { hardware ethernet 00:16:3e:10:00:c9; fixed-address 10.20.0.202; }",
        klepur::Placement::After(printer).WithComment("second floor, since May"));
    document.Find("host printer3").CommentOut();
    for (const klepur::Finding& finding : document.Findings()) {
      std::cout << finding.where.line << ": " << finding.message << "\n";
    }
    std::ofstream(argv[1], std::ios::binary) << document.Text();
  } catch (const klepur::Error& error) {
    std::cerr << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
