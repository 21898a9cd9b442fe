#include <tool/language.h>

#include <algorithm>

#include <tool/problem.h>

namespace klepur::tool {
namespace {

bool IsBlank(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

bool IsDivider(char byte) {
  return byte == ';' || byte == ',' || byte == '{' || byte == '}';
}

std::size_t EndOfString(std::string_view text, std::size_t begin) {
  for (std::size_t i = begin + 1; i < text.size(); ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == '"') {
      return i + 1;
    }
  }
  return text.size();
}

std::size_t EndOfPiece(std::string_view text, std::size_t begin) {
  if (text[begin] == '#') return std::min(text.find('\n', begin), text.size());
  if (text[begin] == '"') return EndOfString(text, begin);
  if (IsDivider(text[begin])) return begin + 1;
  std::size_t end = begin;
  while (end < text.size() && !IsBlank(text[end]) && !IsDivider(text[end]) && text[end] != '#' &&
         text[end] != '"') {
    ++end;
  }
  return end;
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool IsPlainForShell(char byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
         (byte >= 'A' && byte <= 'Z') ||
         std::string_view("-_./:@%+=,").find(byte) != std::string_view::npos;
}

}  // namespace

Piece PieceBehind(std::string_view text, std::size_t offset) {
  while (offset < text.size() && IsBlank(text[offset])) ++offset;
  if (offset >= text.size()) return {{}, text.size()};
  return {text.substr(offset, EndOfPiece(text, offset) - offset), offset};
}

std::vector<Piece> PiecesOf(std::string_view text) {
  std::vector<Piece> pieces;
  for (Piece piece = PieceBehind(text, 0); !piece.text.empty();
       piece = PieceBehind(text, piece.offset + piece.text.size())) {
    pieces.push_back(piece);
  }
  return pieces;
}

std::string Plain(std::string_view text) {
  std::string plain;
  for (const Piece& piece : PiecesOf(text)) {
    if (piece.IsComment()) continue;
    if (!plain.empty() && !piece.Is(',') && !piece.Is(';')) plain += ' ';
    plain += piece.text;
  }
  return plain;
}

std::vector<std::string> Divided(std::string_view text, char divider) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') {
      i = EndOfString(text, i) - 1;
    } else if (text[i] == divider) {
      parts.emplace_back(Trimmed(text.substr(begin, i - begin)));
      begin = i + 1;
    }
  }
  parts.emplace_back(Trimmed(text.substr(begin)));
  return parts;
}

std::vector<std::string> ShellWords(std::string_view line) {
  std::vector<std::string> words;
  bool in_word = false;
  const auto add = [&](char byte) {
    if (!in_word) words.emplace_back();
    in_word = true;
    words.back() += byte;
  };
  char quote = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char byte = line[i];
    if (quote != 0 && byte == quote) {
      quote = 0;
    } else if (quote == 0 && (byte == '\'' || byte == '"')) {
      quote = byte;
      if (!in_word) words.emplace_back();
      in_word = true;
    } else if (byte == '\\' && quote != '\'' && i + 1 < line.size() &&
               (quote == 0 || line[i + 1] == '"' || line[i + 1] == '\\')) {
      add(line[++i]);
    } else if (quote == 0 && IsBlank(byte)) {
      in_word = false;
    } else if (quote == 0 && byte == '#' && !in_word) {
      break;
    } else {
      add(byte);
    }
  }
  if (quote != 0) {
    throw Problem(ExitStatus::kUsage,
                  std::string("a quote is not closed: ") + quote + words.back());
  }
  return words;
}

std::string ForShell(std::string_view word) {
  if (!word.empty() && std::all_of(word.begin(), word.end(), IsPlainForShell))
    return std::string(word);
  std::string quoted = "'";
  for (const char byte : word) {
    if (byte == '\'') {
      quoted += "'\\''";
    } else {
      quoted += byte;
    }
  }
  return quoted + "'";
}

}  // namespace klepur::tool
