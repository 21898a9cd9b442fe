// What the nodes of a document are.
#ifndef KLEPUR_DOCUMENT_NODE_KIND_H
#define KLEPUR_DOCUMENT_NODE_KIND_H

#include <cstdint>

namespace klepur {

enum class NodeKind : std::uint8_t {
  kFile,       ///< The whole text; what `Document::Root` gives.
  kBlock,      ///< "host pc1 { ... }": a header, "{", nodes, "}"; a ";" behind that belongs to it.
  kStatement,  ///< "option routers 10.0.0.1;", over one line or several.
  kLabel,      ///< "case 1:", "default:", in a switch.
  kComment,    ///< From "#" to the end of the line, without the blanks there.
  kStray,      ///< A "}" or ";" that belongs to nothing.
};

}  // namespace klepur

#endif
