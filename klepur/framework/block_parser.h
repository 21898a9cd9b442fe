// BlockParser: turns block-structured text into a tree, for every kind of file that has blocks.
#ifndef KLEPUR_FRAMEWORK_BLOCK_PARSER_H
#define KLEPUR_FRAMEWORK_BLOCK_PARSER_H

#include <klepur/export.h>
#include <klepur/framework/parser_base.h>
#include <klepur/framework/section_holder.h>
#include <klepur/memory/object_memory.h>

#include <cstdio>
#include <functional>
#include <string>

namespace klepur {

/// The machinery of DhcpParser and Dhcpv6LeasesParser. It knows ";", "{", "}" and "#", and no
/// words.
///
/// - A statement is the text up to and including the next ";", line ends dropped. It becomes an
///   entry of its block with that text as its key. It begins behind what is a blank to CfLex.
/// - A comment is "#" to the end of the line. It becomes an entry with the text behind the "#",
///   without the spaces, tabs and "\v" around it, and with the comment "#". Text before the "#"
///   that no ";" has ended is joined in front of it.
/// - "{" opens a block. Its name is the text before the "{" and the rest of that line. It ends at
///   "}".
/// - "{" opens none when the text before it or the rest of its line holds a ";", in quotes too:
///   "host a { fixed-address 10.0.0.5; }" is one entry.
/// - Text before a "}" that no ";" has ended becomes the front of the next statement.
/// - After a "}" too many, what follows hangs beside the root section, not below it.
///
/// The root section "TREE_ROOT_SECTION" is made by the first parse of an object only; a later one
/// puts the file's blocks straight under the holder. Use a new object for each file.
class KLEPUR_EXPORT BlockParser : public CfParser {
 public:
  BlockParser() noexcept;

  /// Closes the output file when one is open.
  ~BlockParser() override;

  /// Reads the file at `path` into the tree of the CfSectionHolder that `target` points at.
  ///
  /// \return true when the whole file was read. False when it does not exist (logged as a warning),
  ///         when it cannot be opened or read, holds a NUL byte or memory runs out (logged as
  ///         information, with the reason), and whenever DoParse returns false. What was built by
  ///         then stays in the tree.
  ///
  /// A stream that is already installed is read in place of the file. After an exception the lexer
  /// stays in its slot, at its end, until the next parse.
  /// Cost: linear in the file.
  bool ParseFile(const char* path, void* target) override;

  /// Reads what the installed lexer brings. False when `target` is null, and at a token that is not
  /// of a kind listed in token.h.
  /// Throws what the lexer throws, and std::bad_alloc.
  bool DoParse(void* target) override;

  /// Appends the text of every token to the line buffer up to the next line end, which it consumes.
  /// \return the line end, or null at the end of the input.
  Token* GetLine();

  /// Acts on the current token, a punctuator.
  void PunctuatorAnalyser();

  /// Acts on "{": opens a block, or stores a one-line block as an entry. The place of the "{" in
  /// such an entry is kept as an unsigned 16-bit number: behind 65536 characters or more it is put
  /// back at the position modulo 65536.
  void SectionStartAnalyzer();

  /// Acts on "}": the block around the current one becomes current. The line buffer stays as it is.
  void SectionEndAnalyzer();

  /// Opens a block named `text` in the current block, or at the holder's top when there is none.
  ///
  /// Spaces, tabs and "\v" at its end are cut off `text` itself; then the line buffer is emptied.
  /// \return false when no parse has named a holder yet, else true.
  bool AddSection(std::string& text);

  /// Stores `text` as an entry of the current block; as a comment when the last punctuator was "#".
  ///
  /// Spaces, tabs and "\v" at its end, and at the front of a comment, are cut off `text` itself;
  /// then the line buffer is emptied.
  /// \return 1; 0 when no block is current.
  int AddSectionParameter(std::string& text);

  /// Makes the root section once in an object's life. False when no parse has named a holder yet.
  bool CreateRootSection();

 protected:
  Token* currentToken;                     ///< The token last returned by GetToken.
  CfSectionHolder* holder;                 ///< The tree being built or written; not owned.
  CfSection* rootSection;                  ///< Once set only ever tested, never used.
  Tree<CfSection>::TreeNode* currentNode;  ///< Receives new entries and blocks.
  int lastPunctuator;                      ///< Its character; 127 for another one, -1 for none.
  std::FILE* outputFile;                   ///< For parsers that also write; null when none is open.
  std::string lineBuffer;                  ///< The statement being collected.

  /// While it lives, `act` is called with each block when it has ended, the root section included
  /// at a "}" too many. It may unlink the block and delete it. One at a time for a parser.
  class AtBlockEnds {
   public:
    using Act = std::function<void(Tree<CfSection>::TreeNode& block)>;

    AtBlockEnds(BlockParser& parser, Act act);
    AtBlockEnds(const AtBlockEnds&) = delete;
    AtBlockEnds& operator=(const AtBlockEnds&) = delete;
    ~AtBlockEnds();

   private:
    BlockParser& parser_;
  };

  /// Flushes and closes the output file when one is open.
  void CloseOutput() noexcept;

 private:
  CfLex* PlainLexer() const;
  bool TakeToken();
  void OpenStream(const char* path);
  bool ParseInstalledStream(const char* path, void* target);
  void AbandonParse() noexcept;
  void OpenBlock(Tree<CfSection>::TreeNode& parent, const char* name);

  internal::ObjectMemory memory_;  // for nodes and entries
  AtBlockEnds::Act atBlockEnd_;    // none, usually
};

}  // namespace klepur

#endif
