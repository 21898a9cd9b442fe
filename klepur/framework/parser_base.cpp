#include <klepur/framework/parser_base.h>

#include <cstring>
#include <string_view>

namespace {

/// The bytes of a text that stays where it is.
class TextIterator : public StreamIterator {
 public:
  explicit TextIterator(const char* text) : rest_(text) {}

  std::size_t Read(char* buffer, std::size_t size) override {
    const std::size_t count = rest_.copy(buffer, size);
    rest_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view rest_;
};

}  // namespace

CfParser::CfParser() noexcept : lexer(nullptr), stream(nullptr) {}

CfParser::~CfParser() {
  ClearSlots();
}

bool CfParser::ParseBuffer(const char* text, void* holder) {
  if (text == nullptr || holder == nullptr) return false;
  ClearSlots();
  try {
    stream = new TextIterator(text);
    InstallLexer();
    const bool read = DoParse(holder);
    ClearSlots();
    return read;
  } catch (...) {
    ClearSlots();
    throw;
  }
}

klepur::Token* CfParser::GetToken() {
  return lexer == nullptr ? nullptr : lexer->GetToken();
}

void CfParser::InstallLexer() {
  delete lexer;
  lexer = nullptr;
  lexer = new CfLex(stream, false);
}

void CfParser::ClearSlots() noexcept {
  delete lexer;
  lexer = nullptr;
  delete stream;
  stream = nullptr;
}
