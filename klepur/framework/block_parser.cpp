#include <klepur/framework/block_parser.h>
#include <klepur/framework/file_iterator.h>
#include <klepur/framework/file_utility.h>
#include <klepur/framework/tree_links.h>

#include <syslog.h>

#include <algorithm>
#include <cstdint>
#include <exception>
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

bool IsBlank(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\v';
}

void TrimEnd(std::string& text) {
  while (!text.empty() && IsBlank(text.back())) text.pop_back();
}

void TrimStart(std::string& text) {
  text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), IsBlank));
}

void LogUnreadable(const char* path, const std::exception& reason) {
  syslog(LOG_INFO, "EXCEPTION! Cannot read %s, %s!", path, reason.what());
}

}  // namespace

BlockParser::BlockParser() noexcept
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

void BlockParser::OpenStream(const char* path) {
  auto* const file = new FileIterator(path);
  stream = file;
  // Where blocks go when they have ended, there are few objects at a time.
  memory_.Expect(atBlockEnd_ ? 0 : file->Size() * 3 / 2);
}

bool BlockParser::ParseInstalledStream(const char* path, void* target) {
  if (stream == nullptr) OpenStream(path);
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
  if (currentNode == nullptr || currentNode->parent == nullptr) return;
  if (holder != nullptr && currentNode == &holder->topNode) return;
  internal::TreeNode& ended = *currentNode;
  currentNode = ended.parent;
  if (atBlockEnd_) atBlockEnd_(ended);
}

BlockParser::AtBlockEnds::AtBlockEnds(BlockParser& parser, Act act) : parser_(parser) {
  parser_.atBlockEnd_ = std::move(act);
}

BlockParser::AtBlockEnds::~AtBlockEnds() {
  parser_.atBlockEnd_ = nullptr;
}

bool BlockParser::AddSection(std::string& text) {
  if (currentNode == nullptr && holder == nullptr) return false;
  TrimEnd(text);
  OpenBlock(currentNode != nullptr ? *currentNode : holder->topNode, text.c_str());
  lineBuffer.clear();
  lastPunctuator = kNone;
  return true;
}

int BlockParser::AddSectionParameter(std::string& text) {
  if (currentNode == nullptr) return 0;
  TrimEnd(text);
  const bool isComment = lastPunctuator == kComment;
  if (isComment) TrimStart(text);
  // As a C string: a caller's text may hold a NUL byte, behind which nothing counts.
  currentNode->section.Append(memory_, text.c_str(), isComment ? "#" : nullptr);
  lineBuffer.clear();
  lastPunctuator = kNone;
  return 1;
}

/// Appends a block, which becomes the current one.
void BlockParser::OpenBlock(internal::TreeNode& parent, const char* name) {
  CfSection section;
  section.SetName(name);
  currentNode =
      internal::AppendChild(parent, memory_.Make<internal::TreeNode>(&parent, std::move(section)));
}

bool BlockParser::CreateRootSection() {
  if (rootSection != nullptr) return true;
  if (holder == nullptr) return false;
  OpenBlock(holder->topNode, internal::kRootName);
  rootSection = &currentNode->section;
  return true;
}

}  // namespace klepur
