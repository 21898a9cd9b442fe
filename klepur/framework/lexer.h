// CfLex: splits a stream of bytes into tokens.
#ifndef KLEPUR_FRAMEWORK_LEXER_H
#define KLEPUR_FRAMEWORK_LEXER_H

#include <klepur/export.h>
#include <klepur/framework/stream_iterator.h>
#include <klepur/framework/token.h>

#include <cstddef>
#include <string>
#include <vector>

/// Splits a configuration text into tokens, one a call.
///
/// - "\n" and "\r\n" are one line end each.
/// - A run of space, tab, "\v", "\f" and "\r" that no "\n" follows is one blank. Users of the
///   tokens have blanks of their own, fewer than these.
/// - "#", ";", "{" and "}" are one punctuator each.
/// - A double quote opens a quoted string that runs to the next one on the same line; a backslash
///   in it takes the next character along. It may begin inside a word. A double quote that nothing
///   closes on its line is an ordinary character, and so is a backslash outside a quoted string.
/// - Everything else makes words, bytes from 0x80 on and control characters included; a word of
///   digits alone is a number.
///
/// Cost: linear in the text; memory for the longest line and a fixed buffer.
class KLEPUR_EXPORT CfLex {
 public:
  /// \param stream  where the text comes from; not owned, and must live as long as tokens are
  ///                taken. The second argument has no effect.
  CfLex(StreamIterator* stream, bool);
  CfLex(const CfLex&) = delete;
  CfLex& operator=(const CfLex&) = delete;
  virtual ~CfLex();

  /// The next token, valid until the next call; null at the end of the text.
  ///
  /// Throws std::runtime_error that names the line when a token would hold a NUL byte, and whatever
  /// the stream throws.
  virtual klepur::Token* GetToken();

  /// Takes all tokens up to the next punctuator at once and appends their text to `text`, line ends
  /// left out, and blanks while `text` is empty. Gives what GetToken would, several times faster; a
  /// class that overrides GetToken is not asked. Throws as GetToken does.
  void AppendStatement(std::string& text);

  /// Takes all tokens up to the next line end at once and appends their text to `text`. Otherwise
  /// as AppendStatement.
  void AppendRestOfLine(std::string& text);

  /// Forgets the stream: from now on the text is at its end.
  void Detach() noexcept;

 private:
  bool LoadLines();
  bool ReadMore();
  const char* LineEndAt(const char* at) const;
  const char* BlankEnd() const;
  const char* QuotedEnd(const char* quote);
  const char* TextEnd();
  void AppendTokensBeforeNul(std::string& text);
  klepur::Token* TakePunctuator();
  klepur::Token* TakeQuotedOrWord();
  klepur::Token* TakeWord();
  klepur::Token* Take(klepur::TokenKind kind, const char* end);
  [[noreturn]] void ThrowNulByte() const;

  StreamIterator* stream_;
  klepur::Token token_;
  std::vector<char>
      window_;             // whole lines, the beginning of the next one, and a line feed behind it
  const char* next_;       // in window_: where the next token begins
  const char* linesStop_;  // in window_: just past the whole lines
  const char* textStop_;   // in window_: just past what was read
  const char* unclosedStop_;    // in window_: no quoted string that begins before is closed
  std::size_t lineNumber_ = 1;  // of the next token
};

#endif
