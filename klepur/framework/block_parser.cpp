#include <klepur/framework/block_parser.h>
#include <klepur/framework/file_iterator.h>
#include <klepur/framework/file_utility.h>
#include <klepur/framework/tree_links.h>

#include <syslog.h>

#include <cstdint>
#include <exception>
#include <string_view>
#include <typeinfo>
#include <utility>

namespace klepur {
namespace {

enum LastPunctuator : int {
  kNone = -1,
  kComment = '#',
  kStatementEnd = ';',
  kBlockStart = '{',
  kBlockEnd = '}',
  kOther = 127,
};

constexpr std::string_view kBlanks = " \t\v";

void TrimEnd(std::string& text) {
  text.erase(text.find_last_not_of(kBlanks) + 1);
}

void TrimStart(std::string& text) {
  text.erase(0, text.find_first_not_of(kBlanks));
}

void LogUnreadable(const char* path, const std::exception& reason) {
  syslog(LOG_INFO, "EXCEPTION! Cannot read %s, %s!", path, reason.what());
}

}  // namespace

BlockParser::BlockParser()
    : currentToken(nullptr),
      holder(nullptr),
      rootSection(nullptr),
      currentNode(nullptr),
      lastPunctuator(kNone),
      outputFile(nullptr) {}

BlockParser::~BlockParser() {
  CloseOutput();
}

void BlockParser::CloseOutput() noexcept {
  if (outputFile == nullptr) return;
  std::fflush(outputFile);
  std::fclose(outputFile);
  outputFile = nullptr;
}

bool BlockParser::ParseFile(const char* path, void* target) {
  try {
    if (!FileUtility::IsFileExist(path)) {
      syslog(LOG_WARNING, "File %s doesn't exist!", path == nullptr ? "" : path);
      return false;
    }
    return ParseInstalledStream(path, target);
    // A stream of a caller's own may throw a pointer.
  } catch (const std::exception* reason) {  // NOLINT(misc-throw-by-value-catch-by-reference)
    AbandonParse();
    LogUnreadable(path, *reason);
  } catch (const std::exception& reason) {
    AbandonParse();
    LogUnreadable(path, reason);
  } catch (...) {
    AbandonParse();
    syslog(LOG_INFO, "EXCEPTION! Cannot read %s!", path);
  }
  return false;
}

bool BlockParser::ParseInstalledStream(const char* path, void* target) {
  if (stream == nullptr) stream = new FileIterator(path);
  InstallLexer();
  const bool read = DoParse(target);
  stream->CloseFile();
  currentToken = nullptr;
  ClearSlots();
  return read;
}

/// Leaves no way to the stream, which is deleted.
void BlockParser::AbandonParse() noexcept {
  if (lexer != nullptr) lexer->Detach();
  delete stream;
  stream = nullptr;
  currentToken = nullptr;
}

bool BlockParser::DoParse(void* target) {
  if (target == nullptr) return false;
  holder = static_cast<CfSectionHolder*>(target);
  currentNode = &holder->topNode;
  if (!CreateRootSection()) return false;
  for (;;) {
    // What follows up to the next punctuator would arrive here token by token: this saves most of
    // them.
    if (CfLex* const plain = PlainLexer()) plain->AppendStatement(lineBuffer);
    currentToken = GetToken();
    if (currentToken == nullptr) return true;
    if (!TakeToken()) return false;
  }
}

/// The lexer when it is a CfLex and nothing derived from it, which may make other tokens; else
/// null.
CfLex* BlockParser::PlainLexer() const {
  return lexer != nullptr && typeid(*lexer) == typeid(CfLex) ? lexer : nullptr;
}

bool BlockParser::TakeToken() {
  switch (currentToken->kind) {
    case kWord:
    case kNumber:
    case kQuotedString:
      lineBuffer += currentToken->text;
      return true;
    case kPunctuator:
      PunctuatorAnalyser();
      return true;
    case kBlank:
      if (!lineBuffer.empty()) lineBuffer += currentToken->text;
      return true;
    case kLineEnd:
      return true;
    default:
      return false;
  }
}

Token* BlockParser::GetLine() {
  if (CfLex* const plain = PlainLexer()) plain->AppendRestOfLine(lineBuffer);
  while ((currentToken = GetToken()) != nullptr && currentToken->kind != kLineEnd) {
    lineBuffer += currentToken->text;
  }
  return currentToken;
}

void BlockParser::PunctuatorAnalyser() {
  if (currentToken == nullptr) return;
  switch (currentToken->text.c_str()[0]) {
    case '#':
      lastPunctuator = kComment;
      GetLine();
      AddSectionParameter(lineBuffer);
      break;
    case ';':
      lastPunctuator = kStatementEnd;
      lineBuffer += currentToken->text;
      AddSectionParameter(lineBuffer);
      break;
    case '{':
      SectionStartAnalyzer();
      break;
    case '}':
      SectionEndAnalyzer();
      break;
    default:
      lastPunctuator = kOther;
      lineBuffer += currentToken->text;
      break;
  }
}

void BlockParser::SectionStartAnalyzer() {
  const auto bracePosition = static_cast<std::uint16_t>(lineBuffer.size());
  GetLine();
  if (lineBuffer.find(';') == std::string::npos) {
    lastPunctuator = kBlockStart;
    AddSection(lineBuffer);
  } else {
    lineBuffer.insert(bracePosition, 1, '{');
    AddSectionParameter(lineBuffer);
  }
}

void BlockParser::SectionEndAnalyzer() {
  lastPunctuator = kBlockEnd;
  if (currentNode != nullptr && currentNode->parent != nullptr) currentNode = currentNode->parent;
}

bool BlockParser::AddSection(std::string& text) {
  if (currentNode == nullptr && holder == nullptr) return false;
  TrimEnd(text);
  CfSection section;
  section.SetName(text.c_str());
  internal::TreeNode& parent = currentNode != nullptr ? *currentNode : holder->topNode;
  currentNode = internal::AppendChild(parent, std::move(section));
  lineBuffer.clear();
  lastPunctuator = kNone;
  return true;
}

int BlockParser::AddSectionParameter(std::string& text) {
  if (currentNode == nullptr) return 0;
  TrimEnd(text);
  const bool isComment = lastPunctuator == kComment;
  if (isComment) TrimStart(text);
  const int added = currentNode->section.AddEntry(text.c_str(), nullptr, isComment ? "#" : nullptr);
  lineBuffer.clear();
  lastPunctuator = kNone;
  return added;
}

bool BlockParser::CreateRootSection() {
  if (rootSection != nullptr) return true;
  if (holder == nullptr) return false;
  CfSection section;
  section.SetName(internal::kRootName);
  currentNode = internal::AppendChild(holder->topNode, std::move(section));
  rootSection = &currentNode->section;
  return true;
}

}  // namespace klepur
