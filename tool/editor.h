// Carries out the commands that edit a document.
#ifndef KLEPUR_TOOL_EDITOR_H
#define KLEPUR_TOOL_EDITOR_H

#include <klepur/document/document.h>

#include <cstddef>
#include <string>
#include <vector>

#include <tool/block_finder.h>
#include <tool/block_names.h>
#include <tool/host_places.h>
#include <tool/invocation.h>

namespace klepur::tool {

/// What an edit did, and where.
struct EditNote {
  Node where;                         ///< No node for what was removed.
  std::size_t line_before;            ///< Where it stood, of what was removed.
  std::string text;                   ///< "set max-lease-time 7200 in host pc-17"
  std::vector<std::string> comments;  ///< That went with what was removed, as they stood.

  /// Where it stands, or stood. Cost after an edit: linear in the file.
  std::size_t Line() const { return where ? where.Begin().line : line_before; }
};

class Editor {
 public:
  enum class Tells {
    kEachEdit,  ///< Notes what was done and where: for each command a time in proportion to the file.
    kNothing,
  };

  Editor(Document& document, Tells tells);

  /// Carries out one command, such as "set"; when it throws, the document is as it was. Throws Problem for
  /// blocks that are not there and for text that is not understood, and what the document throws.
  void Apply(const Invocation& edit);

  const std::vector<EditNote>& Notes() const { return notes_; }

 private:
  using Operation = void (Editor::*)(const Invocation&);
  static Operation OperationOf(const Invocation& edit);

  void Add(const Invocation& edit);
  void Set(const Invocation& edit);
  void Unset(const Invocation& edit);
  void Disable(const Invocation& edit);
  void Enable(const Invocation& edit);
  void Rename(const Invocation& edit);
  void Move(const Invocation& edit);
  void Remove(const Invocation& edit);

  /// What an edit is about, and what it is called, noted before anything is edited.
  struct Target {
    Node node;
    std::string
        name;  ///< "host pc-17", "max-lease-time 600 in host pc-17"; empty when nothing is told.
    std::size_t line = 0;
  };
  std::vector<Target> Named(const std::vector<Node>& nodes) const;
  std::vector<Target> Targets(const Invocation& edit) const;
  Placement PlacementOf(const Invocation& edit, const std::string& in, Node& parent) const;
  Node SetStatement(Node block, const std::string& statement);
  void RemoveAll(const std::vector<Node>& nodes);
  void Tell(const Node& where, const std::string& text);

  Document* document_;
  bool tells_;
  BlockFinder finder_;
  HostPlaces places_;
  std::vector<EditNote> notes_;
};

}  // namespace klepur::tool

#endif
