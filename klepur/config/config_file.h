// All operations that the configuration files of both address families have, documented once.
#ifndef KLEPUR_CONFIG_CONFIG_FILE_H
#define KLEPUR_CONFIG_CONFIG_FILE_H

#include <klepur/config/section_record.h>
#include <klepur/export.h>
#include <klepur/framework/section_holder.h>
#include <klepur/parser/dhcp_parser.h>

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace klepur {

namespace internal {
struct ConfigFileAccess;
class FileState;
class TreeIndex;
}  // namespace internal

/// One DHCP server configuration file: read into a tree, walked and edited there, and written back.
/// Use it as DhcpConfigFile or Dhcpv6ConfigFile.
///
/// **Two cursors** stand for where the caller is. `currentNetwork` is the shared network whose
/// blocks are being walked, or null at the top level. `currentSubnet` is a block below it or,
/// without one, a top-level block; hosts and if blocks are looked for, added and removed in it.
/// Each operation says how it moves them; where it says nothing, and on every failure unless it
/// says so, they stay. A cursor that stands on or in a block that is removed, and is not moved
/// elsewhere, becomes null.
///
/// **Names.** A block's header is its name in the tree: "host pc-17". Headers are compared whole,
/// byte for byte, so the spacing of the file counts. A "bare name" is the header without its
/// keyword: "pc-17". A blank, in headers and in lines, is a space, not a tab.
///
/// **Looking from a block on** means the block itself first, then everything nested in it, in file
/// order; the first block with the header is the one found. So a cursor that stands on a "host a"
/// hides the hosts of that name in it.
///
/// **Results.** Operations that return bool or int return true or 1 for success, false or 0 for
/// failure or a miss. They throw nothing but std::bad_alloc and what they name. Only Open and
/// ReadDhcpConfigFile log: what kept the file from being read. A record or text that is to be
/// filled is left as it was on failure. A null where a text or record is wanted fails.
///
/// **Before the first Open** every operation that looks for a block fails. AddNetwork, AddSubnet,
/// AddHost, AddIFSection and AddTreeSection do not ask whether there is a file: they begin a tree
/// with the new block in the root section's place and return what they do in a file, Save writes
/// that block, and Open then reads the file behind it. Call AddSection, which refuses.
///
/// **Cost.** Looking for a block, by its header or by a line of it, takes as long in a large file
/// as in a small one, and so do stepping to the next block, adding, changing and removing one: what
/// is read and written is that block. The first lookups in a file walk over its blocks, until that
/// has cost as much as making tables, which take about half of the tree's memory.
///
/// **By hand.** A node that GetTreeItemByNameAt or GetTreeItemBySectionAt returns leads to the whole
/// tree, and a caller may change all of it: names, lines and child lists, at any time. So from the
/// first such node on, this object looks into the tree itself at each call and uses no tables any
/// more: looking for a block then takes as long as going through those before it, also after
/// another Open, which keeps the topmost node. An object of a class derived from DhcpConfigFile or
/// Dhcpv6ConfigFile has the tree in its hands and never uses tables. Who deletes a node by hand
/// that a cursor stands on, or in, first moves the cursor elsewhere.
///
/// One object is used by one thread at a time.
template <class Vocabulary>
class ConfigFile {
 public:
  using Section = SectionRecord<Vocabulary>;
  using SectionType = typename Section::SectionType;
  using SectionParam = typename Section::SectionParam;
  using TreeNode = Tree<CfSection>::TreeNode;

  // ---- Lifecycle ----

  /// A file without a name, which can neither be opened nor saved.
  ConfigFile();

  /// The configuration file at the path `fileName`: "/etc/dhcp/dhcpd.conf". It is not read yet. A
  /// null or empty name is none. A path converts to its file: DhcpConfigFile file = path.
  ConfigFile(const char* fileName);  // NOLINT(google-explicit-constructor): callers convert paths

  ConfigFile(const ConfigFile&) = delete;
  ConfigFile& operator=(const ConfigFile&) = delete;

  /// Frees the tree. Edits that were not saved are lost.
  virtual ~ConfigFile();

  /// The path given at construction, or the empty text.
  std::string GetConfFileName() const;

  /// Reads the file into a fresh tree and places the cursors on its first block.
  ///
  /// If the first block is a shared network, `currentNetwork` becomes that block and
  /// `currentSubnet` its first block (null if it has none). Otherwise `currentNetwork` becomes null
  /// and `currentSubnet` the first block. Both become null when the file has no blocks.
  ///
  /// Called again it discards the tree with all unsaved edits, makes both cursors null and reads
  /// the file anew; nodes and sections that lookups returned are then gone, also when it fails.
  ///
  /// \return false when no file was named, or it is missing or unreadable, which the system log
  ///         says (DhcpParser::ParseFile). The tree then holds what was read before the failure.
  /// Cost: linear in the file.
  bool Open();

  /// Reads the file into the tree as it is, without placing the cursors. Open calls it; call Open.
  bool ReadDhcpConfigFile();

  /// Writes the tree to a file, replacing what the file held. The layout: DhcpParser::FileWriter.
  ///
  /// \param path  where to write; empty for the file named at construction. GetConfFileName() does
  ///              not change.
  /// \return 1 when the file was opened and written; 0 when there is no tree yet, no file was named
  ///         at construction, or the file cannot be opened (it is then left as it was). A short
  ///         write, as on a full disk, is not reported.
  /// When memory runs out, std::bad_alloc is thrown and the file holds the first part of the text.
  /// Cost: linear in the text written.
  int Save(const std::string& path);

  /// The text that Save would write; empty when there is no tree yet. Cost: linear in it.
  std::string Text();

  // ---- Finding tree nodes ----

  /// The first block whose whole header is `name`, looked for from `start` on, `start` itself
  /// included, then through everything nested in it, in file order.
  ///
  /// \param name   "host pc-17"; null for the root section "TREE_ROOT_SECTION", wherever `start`
  ///               is.
  /// \param start  null for the root section, that is the whole file.
  /// \return the node, which stays the tree's, or null.
  TreeNode* GetTreeItemByNameAt(const char* name, TreeNode* start);

  /// The same, but a null `name` finds nothing.
  TreeNode* GetTreeItemBySectionAt(const char* name, TreeNode* start);

  // ---- Records and lines ----

  /// Fills `record` from a block; what it held before is discarded.
  ///
  /// The kind is told by the header: the first of "shared-network ", the subnet keyword, "host "
  /// and "if " that stands anywhere in it; SECTION_GLOBAL when none does. The first parameter is
  /// the block's name: the header behind its first blank; for SECTION_GLOBAL the whole header; for
  /// a DHCPv4 subnet "10.0.0.0:255.0.0.0", the text up to " netmask " and the header's last word.
  ///
  /// \param rawEntries  false: each line that GetEntryType knows gives one parameter of its type.
  ///                    Of several lines of a type the last one's value and comment mark count, in
  ///                    the first one's place. Lines of no known type are left out.
  ///                    True: every line gives a parameter of type -1 with the whole line.
  /// \return true.
  ///
  /// How a value is read from its line is said at the parameter type. Odd lines give odd values,
  /// never an error. A list of which GetNameServers reads no element gives "wrong value": in DHCPv4
  /// a line without a digit, in DHCPv6 one with nothing between its first blank and the ";". Of a
  /// value with blanks the last word is read, so "option routers;" gives "routers" and
  /// "ping-check ;" an empty text. A line that wants an argument and holds no blank or no ";" gets
  /// the value of the parameter read before it in the block, or the block's name; a quoted value
  /// loses a character at each end even then.
  bool TreeToDhcp(const CfSection& section, Section& record, bool rawEntries);

  /// Puts a record into tree form: the name parameter becomes the whole header, each other
  /// parameter a whole statement line.
  ///
  /// \param in   values as the parameter types describe them: {PARAM_FIXED_ADDRESS, "10.0.0.5"}.
  /// \param out  gets the type of `in`, the header as its first parameter when `in` has a name,
  ///             then one line for each type in the order of first occurrence: "fixed-address
  ///             10.0.0.5;".
  /// \return false when `in` has no parameters (`out` is left alone), or is a DHCPv4 subnet whose
  ///         name holds no ":" (`out` is then without parameters).
  ///
  /// Values are neither checked nor escaped. Parameters with an empty value are left out, those of
  /// the fixed statements too ("authoritative" wants some value, usually "exist"), and so are those
  /// of type -1 and of numbers that no statement has. Of several parameters of a type the last
  /// one's value and the first one's comment mark count. The header of SECTION_GLOBAL is always
  /// "TREE_ROOT_SECTION"; that of a type outside SectionType is empty.
  bool DhcpToTree(const Section& in, Section& out);

  /// The parameter type of a line, as Section::GetStringType tells it; -1 for null.
  int GetEntryType(CfSectionEntry* entry);

  /// The first entry whose line holds `text` anywhere, comments included; null when none does or an
  /// argument is null.
  CfSectionEntry* GetEntryFromList(const std::vector<CfSectionEntry*>* list, const char* text);

  /// Copies the front of `src`, up to the first character that `stopChars` holds, to `dst`. No NUL
  /// is put behind it: `dst` must have been prepared. Copies nothing when an argument is null.
  /// \return `dst`.
  char* GetValueFromBuffer(const char* src, const char* stopChars, char* dst);

  /// Cuts a value out of a line.
  ///
  /// \param separator  " ": everything behind the first blank; "host pc-17" gives "pc-17".
  ///                   ";": what stands between the last blank and the first ";";
  ///                   "max-lease-time 7200;" gives "7200". If the first ";" stands before the last
  ///                   blank: everything behind that blank.
  /// \param out        left as it is for any other separator and when the line has no such places.
  void GetValueFromString(const std::string& line, const std::string& separator, std::string& out);

  /// The first decimal digit of `s`, or the end of the scanned text when it has none.
  ///
  /// The length is counted as a signed 16-bit number: of a text of 65536 characters or more, only
  /// the first (length modulo 65536) are scanned, and where bit 15 of the length is set (32768 to
  /// 65535 characters), `s` itself is returned.
  const char* GetFirstDigit(const char* s);

  /// Splits the address list of a statement: "option ntp-servers 10.1.1.1, 10.1.1.2;" gives two
  /// elements.
  ///
  /// Elements are separated by "," and blanks. DHCPv4 lists start at the line's first digit, so a
  /// server given by name leaves a fragment: "dns1.office.lan" gives "1.office.lan". DHCPv6 lists
  /// start at the first blank, so the second word of the keyword is the first element.
  ///
  /// \param out  the elements are appended to it.
  /// \return true when the list ended at a ";". False when it did not; the elements found are in
  ///         `out` nonetheless. Counts as GetFirstDigit does: false, with nothing found, when the
  ///         list's length modulo 65536 is 0 or has bit 15 set.
  bool GetNameServers(const char* line, std::list<std::string>* out);

  // ---- Walking ----

  /// Fetches the first block of the kind `section.type`.
  ///
  /// - SECTION_GLOBAL: the root section with the global statements.
  /// - SECTION_SHARED_NETWORK: the first block, whatever its kind, of the level that
  ///   `currentNetwork` stands on; it becomes `currentNetwork`. False without one.
  /// - SECTION_SUBNET: the same with `currentSubnet`.
  /// - SECTION_HOST, SECTION_IF: the first block straight below `currentSubnet` whose header holds
  ///   "host " ("if "), among its first 65536.
  ///
  /// The record's type tells what was found.
  /// \param rawEntries  as for TreeToDhcp.
  bool GetFirstSection(Section& section, bool rawEntries);

  /// Fetches the block that follows.
  ///
  /// - SECTION_SHARED_NETWORK, SECTION_SUBNET: the next sibling, whatever its kind, of the cursor,
  ///   which moves onto it. Nothing of `current` but its type counts. False at the last one.
  /// - SECTION_HOST, SECTION_IF: the next sibling whose header holds "host " ("if ") behind the
  ///   block that `current` names; this is looked for from `currentSubnet` on.
  /// - Any other kind: false.
  ///
  /// `current` and `next` may be the same record.
  bool GetNextSection(const Section& current, Section& next, bool rawEntries);

  /// Moves the cursors to a block.
  ///
  /// - SECTION_GLOBAL: both cursors become null. `name` may be null.
  /// - SECTION_SHARED_NETWORK: looked for in the whole file; becomes `currentNetwork`, and its
  ///   first block (or null) becomes `currentSubnet`.
  /// - SECTION_SUBNET: looked for from `currentNetwork` on, or in the whole file without one;
  ///   becomes `currentSubnet`.
  /// - SECTION_HOST, SECTION_IF: only tells whether there is one from `currentSubnet` on, or in the
  ///   whole file without one.
  ///
  /// \param name  the header behind its keyword: "office", or for a DHCPv4 subnet "10.0.0.0 netmask
  ///              255.0.0.0", not "10.0.0.0:255.0.0.0". False when null or empty.
  bool GotoSection(const char* name, SectionType type);

  /// Fetches the block of the kind `section.type` and the given name.
  ///
  /// As GotoSection, with these differences: SECTION_GLOBAL fetches the root section and moves
  /// nothing; a shared network leaves `currentSubnet` where it was; the other kinds want a
  /// `currentSubnet`, a subnet too, although it is looked for from `currentNetwork` on; an empty
  /// name is looked for like any other.
  bool GetSectionByName(Section& section, const char* name);

  // ---- Lookup below the current subnet ----

  /// Fetches the first block straight below `currentSubnet` that holds exactly the line `keyname`:
  /// "fixed-address 10.0.0.5;". Any kind of block may be found, and a commented-out line counts
  /// like a live one, here and in the three lookups that follow.
  bool GetSectionByKeyname(const char* keyname, Section& section, bool rawEntries);

  /// GetSectionByKeyname with the host name statement for `name`: option host-name "pc1"; in
  /// DHCPv4, option dhcp6.fqdn "pc1"; in DHCPv6. An empty `name` looks for an empty line.
  bool GetHostByName(const char* name, Section& section, bool rawEntries);

  /// GetSectionByKeyname with the address statement for `ip`: "fixed-address 10.0.0.5;", in DHCPv6
  /// "fixed-address6 2001:db8::5;". A statement with several addresses is not found by one of them.
  bool GetHostByIp(const char* ip, Section& section, bool rawEntries);

  /// GetSectionByKeyname with the hardware address statement for `mac`, written as in the file:
  /// "hardware ethernet 00:11:22:33:44:55;".
  bool GetHostByMACAddress(const char* mac, Section& section, bool rawEntries);

  // ---- Adding ----

  /// Adds a block, as the last one of its parent, by calling the function below that fits its type.
  ///
  /// \param section  bare values, in the form of DhcpToTree.
  /// \return what that function returned; 0 when the record has no name or an empty one, is of
  ///         another type, SECTION_GLOBAL included, or nothing was opened.
  /// Throws what AddSubnet throws.
  int AddSection(const Section& section);

  /// Adds a shared network at the end of the file and moves the cursors as GotoSection does.
  ///
  /// \return 0 when some block's whole header, that of the root section included, is the bare name,
  ///         when DhcpToTree or AddTreeSection fails, and when the block is not found again.
  ///
  /// A second network of the same name is not refused: it is added, and the cursors move to the
  /// older one.
  int AddNetwork(const Section& section);

  /// Adds a subnet below `currentNetwork`, or at the end of the file without one, and goes to its
  /// address by GotoSection. Without a `currentNetwork` that may be an older subnet of the same
  /// name, inside a shared network.
  ///
  /// The address is the name up to the first ","; without one, in DHCPv4, up to the first ":";
  /// without that, up to the first blank; else all of it.
  ///
  /// \return 0 when the first block whose header is the keyword and the address, looked for from
  ///         `currentNetwork` on or in the whole file, stands at the level to which the new one is
  ///         added; one that stands elsewhere is not in the way and hides those behind it. 0 also
  ///         when DhcpToTree or AddTreeSection fails, and when GotoSection does not find the
  ///         address.
  ///
  /// DHCPv4 headers hold more than the address, so for a name with a mask neither search finds
  /// anything: an existing subnet of that address is not noticed, and the result is 0 although the
  /// block was added. Go to it by GotoSection with "10.0.0.0 netmask 255.0.0.0".
  ///
  /// Throws std::out_of_range ("basic_string::substr"), with nothing added, when the first "," is
  /// the name's last character.
  int AddSubnet(const Section& section);

  /// Adds a host below `currentSubnet`, or at the end of the file without one.
  ///
  /// \return 0 when the first host of that name, looked for from `currentSubnet` on, stands
  ///         straight below it, or when DhcpToTree or AddTreeSection fails. A second host of the
  ///         same name is not refused without a `currentSubnet`, nor when the first one is nested
  ///         deeper or is `currentSubnet` itself.
  int AddHost(const Section& section);

  /// Adds an if block; otherwise as AddHost.
  int AddIFSection(const Section& section);

  /// Appends a block made of a tree-form record (DhcpToTree) below `parent`, when that is null
  /// below the root section, and at the holder's top level before there is one.
  ///
  /// Lines are stored as they are. One with an empty value is left out, but if it is the first,
  /// nothing is added and the result is false. A line is commented out if the first parameter of
  /// its type is.
  ///
  /// \return true when a block with at least one line was added. False when there is no header,
  ///         with nothing added; and when there are no lines: the empty block is added nonetheless.
  bool AddTreeSection(const Section& section, TreeNode* parent);

  // ---- Removing ----

  // A block goes with everything nested in it. Records and nodes of a removed block that the caller
  // holds: the records stay good, the nodes are gone.

  /// Removes the block of the record's type and name by calling the function below that fits its
  /// type.
  ///
  /// For a subnet the address in its name is passed on, taken as AddSubnet takes it. DHCPv4 headers
  /// hold more than the address, so a record named "10.0.0.0:255.0.0.0" removes nothing: call
  /// RemoveSubnetSection with "10.0.0.0 netmask 255.0.0.0".
  ///
  /// \return what that function returned; 0 when the record has no name or an empty one, is of
  ///         another type, SECTION_GLOBAL included, or nothing was opened.
  /// Throws std::out_of_range as AddSubnet does, with nothing removed.
  int RemoveSection(const Section& section);

  /// Removes the first shared network of this bare name, looked for in the whole file.
  ///
  /// When it is `currentNetwork`, the cursors move to the first block of the file, or the one that
  /// follows if that is the removed one: onto it and its first block when it is a shared network,
  /// otherwise `currentNetwork` becomes null and `currentSubnet` that block. Both become null when
  /// there is none.
  ///
  /// \return 1, or 0 when there is none. Also 0 when a block in it was hung into another child list
  ///         by hand: what stands before that block is then gone, and the cursors have moved.
  int RemoveNetwork(const char* name);

  /// Removes the first subnet whose header is the keyword and `name`, looked for from
  /// `currentNetwork` on, or in the whole file without one.
  /// \param name  as for GotoSection: "10.0.0.0 netmask 255.0.0.0".
  ///
  /// When it is `currentSubnet`, that cursor moves to the first block of `currentNetwork` (of the
  /// file without one), or the one that follows if that is the removed one, or null. If the block
  /// moved to is a shared network, it becomes `currentNetwork` and its first block `currentSubnet`.
  ///
  /// \return as RemoveNetwork.
  int RemoveSubnetSection(const char* name);

  /// Removes the host of this bare name from `currentSubnet`.
  ///
  /// \return 1; 0 without a `currentSubnet`, and when the first host of that name, looked for from
  ///         it on, does not stand straight below it.
  int RemoveHostSection(const char* name);

  /// Removes an if block; otherwise as RemoveHostSection.
  int RemoveIFSection(const char* name);

  // ---- Changing ----

  // The block is chosen by the record's type: SECTION_GLOBAL is the root section; a shared network
  // is the one on `currentNetwork` and a subnet the block on `currentSubnet`, whatever the record's
  // name is; a host or if block is the first of the record's name from `currentSubnet` on.
  //
  // Nothing is rolled back: on failure the name and the lines that were changed by then stay
  // changed.

  /// Merges a record into its block: rewrites the lines of the record's types, appends those the
  /// block lacks, removes those whose new value is empty, and leaves every other line where and as
  /// it was. Of several parameters of a type that the block lacks each one appends a line, and all
  /// these lines are the one that DhcpToTree makes of the type.
  ///
  /// \param section  values in the form of DhcpToTree.
  /// \param newName  the new bare name, or null to keep the name; ignored for SECTION_GLOBAL.
  /// \return as ChangeTreeSection; 0 when there is no such block.
  int ChangeSection(const Section& section, const char* newName);

  /// The same on a given section.
  ///
  /// Of several lines of one type in the block, the one is rewritten that holds the value that
  /// TreeToDhcp reads, the last one's; it is found by its text, the first line that holds keyword
  /// and value in the spacing that the library writes. A rewritten line is commented out or live as
  /// the record says.
  ///
  /// \return 1; 0 when `target` is null, when the new name or the record cannot be put into tree
  ///         form (DhcpToTree), and when a line to rewrite or remove is not found by its text: its
  ///         spacing is another, it was rewritten by an earlier parameter of the same type, or its
  ///         value was read only in part. Lines changed by then stay changed.
  int ChangeTreeSection(const Section& section, CfSection* target, const char* newName);

  /// Empties the block and fills it with the record's values, each one whole line as it stands,
  /// with its ";". Comments and unknown lines go too; the name stays.
  ///
  /// \return 1 when at least one line was added. 0 when there is no such block or the record has no
  ///         parameters, with nothing changed; and when it has only a name: the block is then
  ///         empty.
  int SetSectionParams(const Section& section);

  // ---- Subnet queries ----

  /// Fills `subnet` with the address in the header of the block on `currentSubnet`: "10.0.0.0".
  /// That is the text behind the first blank, all of it in a header without one, up to the first
  /// " netmask "; up to the end when there is none, as in DHCPv6, "2001:db8:1::/64", or when it
  /// begins at that very blank. The kind of the block plays no part.
  /// \return 1, or 0 without a `currentSubnet`.
  int GetSubnet(std::string& subnet);

 protected:
  CfSectionHolder* holder;   ///< The tree. Owned.
  DhcpParser* parser;        ///< Reads and writes the file. Owned.
  std::string confFileName;  ///< Empty when none was given.
  TreeNode* currentNetwork;  ///< See above; never owning.
  TreeNode* currentSubnet;   ///< See above; never owning.
  int isRead;                ///< 0 until ReadDhcpConfigFile has run once.

 private:
  friend struct internal::ConfigFileAccess;
  bool HasTree() const;
  bool IsReady() const;
  TreeNode* Root() const;
  internal::TreeIndex& Index() const;
  TreeNode* FindNamed(const char* name, TreeNode* start) const;
  TreeNode* HandOut(TreeNode* node) const;
  TreeNode* ParentOf(TreeNode* node) const;
  void DiscardTree();
  void PlaceCursors();
  bool PlaceCursorsOn(TreeNode* node);

  static std::string_view Prefix(SectionType type);
  static std::string Header(SectionType type, std::string_view name);
  TreeNode* FindBlock(SectionType type, const char* name);
  TreeNode* FirstOfLevel(TreeNode* cursor) const;
  TreeNode* NextOfLevel(TreeNode* cursor) const;
  TreeNode* NextOfKind(const Section& current);
  bool Fetch(const TreeNode* node, Section& section, bool rawEntries);
  bool MoveTo(TreeNode* node, TreeNode*& cursor, Section& section, bool rawEntries);
  bool GetHostByParam(int type, const char* value, Section& section, bool rawEntries);

  int AddBelowSubnet(const Section& section, SectionType type);
  bool ConvertAndAdd(const Section& section, TreeNode* parent);

  TreeNode* HeirOf(TreeNode& doomed, TreeNode* level) const;
  int RemoveBelowSubnet(const char* name, SectionType type);
  int RemoveWithChildren(TreeNode& doomed);
  int RemoveNode(TreeNode& doomed);

  TreeNode* ChooseBlock(const Section& section);
  bool Rename(CfSection& target, SectionType type, const char* newName);
  static void AddLine(CfSection& target, const SectionParam* line);
  static void ChangeLine(CfSectionEntry& entry, const SectionParam* line);

  std::unique_ptr<internal::TreeIndex> index_;  // of the holder's tree
  std::unique_ptr<internal::FileState> read_;   // what the file was when it was read or saved
};

}  // namespace klepur

#endif
