// CfParser: what every parser of block-structured text has.
#ifndef KLEPUR_FRAMEWORK_PARSER_BASE_H
#define KLEPUR_FRAMEWORK_PARSER_BASE_H

#include <klepur/export.h>
#include <klepur/framework/lexer.h>
#include <klepur/framework/stream_iterator.h>

/// The base of the parsers: the slots for a lexer and for the stream it reads.
class KLEPUR_EXPORT CfParser {
 public:
  CfParser() noexcept;
  CfParser(const CfParser&) = delete;
  CfParser& operator=(const CfParser&) = delete;

  /// Deletes the lexer and the stream when a parse left them behind.
  virtual ~CfParser();

  /// Reads the file at `path` into the tree of the CfSectionHolder that `holder` points at.
  virtual bool ParseFile(const char* path, void* holder) = 0;

  /// Reads the text of a C string into the tree of the CfSectionHolder that `holder` points at.
  ///
  /// Does what ParseFile does with the same bytes in a file, but logs nothing: an exception reaches
  /// the caller. False when either argument is null.
  virtual bool ParseBuffer(const char* text, void* holder);

  /// Reads what the lexer in the slot brings into the tree of the CfSectionHolder at `holder`.
  virtual bool DoParse(void* holder) = 0;

  /// The lexer's next token, valid until the next call; null at the end of the input and when there
  /// is no lexer.
  /// Throws what the lexer throws.
  klepur::Token* GetToken();

 protected:
  /// Puts a new lexer over the installed stream, in place of any lexer there was.
  void InstallLexer();

  /// Deletes lexer and stream and empties both slots.
  void ClearSlots() noexcept;

  CfLex* lexer;            ///< Owned; null between parses, but see BlockParser::ParseFile.
  StreamIterator* stream;  ///< Owned; null between parses.
};

#endif
