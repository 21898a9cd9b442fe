// Streams and lexers that a test puts in place of a file's.
#ifndef KLEPUR_TESTS_SUPPORT_STREAMS_H
#define KLEPUR_TESTS_SUPPORT_STREAMS_H

#include <klepur/framework/lexer.h>
#include <klepur/framework/token.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/chunk_stream.h"

namespace klepur::test {

using Notes = std::vector<std::string>;

/// A text that notes when it is closed and when it is deleted.
class NotingStream : public ChunkStream {
 public:
  NotingStream(std::string_view text, Notes& notes) : ChunkStream(text), notes_(notes) {}
  ~NotingStream() override { notes_.push_back("stream deleted"); }

  void CloseFile() override { notes_.push_back("stream closed"); }

 private:
  Notes& notes_;
};

/// Brings a text and then, at its end, calls `fail`, which throws.
class FailingStream : public NotingStream {
 public:
  FailingStream(std::string_view text, void (*fail)(), Notes& notes)
      : NotingStream(text, notes), fail_(fail) {}

  std::size_t Read(char* buffer, std::size_t size) override {
    const std::size_t count = NotingStream::Read(buffer, size);
    if (count == 0) fail_();
    return count;
  }

 private:
  void (*fail_)();
};

/// Brings the given tokens and notes when it is deleted.
class ScriptedLexer : public CfLex {
 public:
  explicit ScriptedLexer(std::vector<Token> tokens, Notes* notes = nullptr)
      : CfLex(nullptr, false), tokens_(std::move(tokens)), notes_(notes) {}
  ~ScriptedLexer() override {
    if (notes_ != nullptr) notes_->push_back("lexer deleted");
  }

  Token* GetToken() override { return next_ == tokens_.size() ? nullptr : &tokens_[next_++]; }

 private:
  std::vector<Token> tokens_;
  std::size_t next_ = 0;
  Notes* notes_;
};

}  // namespace klepur::test

#endif
