#include "benchmarks/json_of_tree.h"

#include <klepur/klepur.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "benchmarks/check.h"

namespace {

using Node = Tree<CfSection>::TreeNode;
using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void Write(Writer& writer, const Node& node) {
  writer.StartObject();
  writer.Key("name");
  writer.String(node.section.GetName());
  writer.Key("lines");
  writer.StartArray();
  for (const CfSectionEntry* entry : node.section.entryList) writer.String(entry->GetKeyName());
  writer.EndArray();
  if (node.children != nullptr) {
    writer.Key("blocks");
    writer.StartArray();
    for (const Node* child : *node.children) Write(writer, *child);
    writer.EndArray();
  }
  writer.EndObject();
}

}  // namespace

std::string JsonOfTree(const std::string& path) {
  DhcpConfigFile file(path.c_str());
  Check(file.Open(), "the configuration file is read");
  rapidjson::StringBuffer text;
  Writer writer(text);
  Write(writer, *file.GetTreeItemByNameAt(nullptr, nullptr));
  return text.GetString();
}
