// Saves an edited configuration file so that it cannot be lost: under a lock from reading on, shown before it is
// written, with a backup, and only if a program accepts it.
//
//     save_safely FILE VERIFIER    FILE holds a host printer3; VERIFIER gets the path of the new text
#include <klepur/klepur.h>

#include <cstdlib>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
  if (argc != 3) return EXIT_FAILURE;
  const std::string path = argv[1];
  try {
    klepur::StoredFile file = klepur::StoredFile::OpenLocked(path);
    klepur::Document document = file.Read();
    document.Find("host printer3").Set("fixed-address", "10.20.0.230");
    std::cout << file.Diff(document);
    const klepur::SaveReport report =
        file.Save(document, klepur::SaveOptions().WithBackup(path + ".old").VerifiedBy({argv[2]}));
    std::cout << (report.Written() ? "saved\n" : "nothing to write\n");
  } catch (const klepur::RejectedText& rejected) {
    std::cout << rejected.what() << "\n" << rejected.Output();
    return EXIT_FAILURE;
  } catch (
      const klepur::Error& error) {  // changed by somebody else, locked, not to be replaced, failed
    std::cerr << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
