// Internal: makes documents of texts that are in memory already.
#ifndef KLEPUR_DOCUMENT_DOCUMENT_MAKER_H
#define KLEPUR_DOCUMENT_DOCUMENT_MAKER_H

#include <string>

#include <klepur/document/document.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {

struct DocumentMaker {
  /// A document of this text, which is not copied. \param path  what Document::Path is to be.
  static Document Make(TextBuffer text, const std::string& path);
};

}  // namespace klepur::internal

#endif
