// Adds a host to a file and prints the file: outside FILE
#include <klepur/klepur.h>

#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  DhcpConfigFile file(argv[1]);
  if (!file.Open()) return 1;
  DhcpConfigFile::DhcpSection host;
  host.params.push_back({false, DhcpConfigFile::DhcpSection::PARAM_NAME, "pc-17"});
  host.params.push_back({false, DhcpConfigFile::DhcpSection::PARAM_FIXED_ADDRESS, "10.0.0.17"});
  if (!file.AddSection(host) || !file.Save("")) return 1;
  std::puts("saved");
  return 0;
}
