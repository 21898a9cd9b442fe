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
  Node where;               ///< No node for what was removed.
  std::size_t line_before;  ///< Where it stood, of what was removed; 0 when that is not known.
  std::string text;         ///< "set max-lease-time 7200 in host pc-17"
  std::vector<std::string> comments;  ///< That went with what was removed, as they stood.
  std::size_t script_line = 0;        ///< The line of the script that says so.

  /// Where it stands, or stood. Cost after an edit: linear in the file.
  std::size_t Line() const { return where ? where.Begin().line : line_before; }
};

class Editor {
 public:
  enum class Tells {
    kPaths,  ///< Names blocks with those around them: for each command a time in proportion to the file.
    kNames,  ///< Names blocks alone, and does not know where those stood that it removed.
  };

  Editor(Document& document, Tells tells);

  /// Carries out one command, such as "set"; when it throws, the document is as it was. Throws Problem for
  /// blocks that are not there and for text that is not understood, and what the document throws.
  void Apply(const Invocation& edit);

  /// What was done so far.
  const std::vector<EditNote>& Notes() const { return notes_; }
  /// The commands that follow stand in this line of a script.
  void SetScriptLine(std::size_t line) { script_line_ = line; }

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
    std::string name;  ///< "host pc-17", "max-lease-time 600 in host pc-17"
    std::size_t line = 0;
  };
  std::vector<Target> Named(const std::vector<Node>& nodes) const;
  std::vector<Target> Targets(const Invocation& edit) const;
  Placement PlacementOf(const Invocation& edit, const std::string& in, Node& parent) const;
  Node SetStatement(Node block, const std::string& statement);
  void RemoveAll(const std::vector<Node>& nodes);
  std::string NameOfBlock(const Node& block, BlockNames& names) const;
  void Tell(const Node& where, const std::string& text);

  Document* document_;
  bool tells_paths_;
  std::size_t script_line_ = 0;
  BlockFinder finder_;
  HostPlaces places_;
  std::vector<EditNote> notes_;
};

}  // namespace klepur::tool

#endif
