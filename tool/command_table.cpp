#include <tool/command_table.h>

#include <algorithm>

#include <tool/commands.h>

namespace klepur::tool {
namespace {

constexpr Argument kFile = {"FILE", "the configuration file; - for standard input", Offer::kFile};
constexpr Argument kBlock = {"BLOCK", "the block, see BLOCKS", Offer::kBlock};

using Options = std::vector<Option>;

/// The options of the first set, then those of the second.
Options Both(Options first, const Options& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

const Options& Printing() {
  static const Options options = {
      {"json", 0, "", "print one JSON object instead of text"},
      {"color", 0, "WHEN",
       "colour: always, never, or auto, which is on a terminal without NO_COLOR", Offer::kChoice,
       "always never auto"},
  };
  return options;
}

/// What all commands that change a file have in common.
const Options& Saving() {
  static const Options options = Both(
      {
          {"dry-run", 'n', "", "print what would change as a unified diff, and write nothing"},
          {"diff", 0, "", "print what changes as a unified diff, and save"},
          {"output", 'o', "FILE",
           "write the new text to FILE, or - for standard output, and leave the "
           "file as it is",
           Offer::kFile},
          {"backup", 'b', "",
           "keep the old text beside the file, under its name with the time behind it"},
          {"backup-to", 0, "FILE", "keep the old text in FILE", Offer::kFile},
          {"verify", 0, "COMMAND",
           "save only if COMMAND, called with a file of the new text, ends with 0: "
           "--verify 'dhcpd -t -4 -cf'"},
          {"force", 0, "", "save though the edit brings in a mistake that `check` calls an error"},
          {"in-place", 0, "", "write over the file where it cannot be replaced, as a mount point"},
      },
      Printing());
  return options;
}

const Option kAll = {
    "all",           0,  "",  "all blocks that BLOCK fits, which may be a pattern: 'host lab-*'",
    Offer::kNothing, {}, true};
const Option kAfter = {"after",       0,  "BLOCK", "put it behind this block or statement",
                       Offer::kBlock, {}, true};
const Option kBefore = {"before",      0,  "BLOCK", "put it before this block or statement",
                        Offer::kBlock, {}, true};

std::vector<Command> LookingCommands() {
  return {
      {"list",
       "the blocks of a file, or a table of some kinds",
       "Without a KIND all blocks are listed in the order of the file, on a terminal indented as "
       "they stand in "
       "each other. With kinds such as host, subnet or pool, those are listed, sorted by address. "
       "IDENTITY is "
       "what a host is recognised by, ADDRESSES are its fixed addresses, or the ranges of a subnet "
       "or pool. "
       "Blocks that are commented out are marked as disabled.",
       {kFile, {"KIND", "the kinds of blocks to list", Offer::kKind, true, true}},
       Both({{"sort", 0, "ORDER", "by address, name, or place in the file", Offer::kChoice,
              "address name file"}},
            Printing()),
       {{"klepur list dhcpd.conf", "all blocks"},
        {"klepur list dhcpd.conf host", "a table of the hosts"}},
       RunList},
      {"show",
       "a block as it stands in the file, or what holds for it",
       "Prints the lines of the block and of the comments that belong to it.",
       {kFile, kBlock},
       Both({{"in-force", 0, "",
              "the statements that hold for the block instead, and where each comes from"}},
            Printing()),
       {{"klepur show dhcpd.conf 'host pc-17'", "the host's lines"},
        {"klepur show dhcpd.conf 'host pc-17' --in-force",
         "the options and parameters that it gets"}},
       RunShow},
      {"find",
       "anything by address, hardware address, identifier or name",
       "An address is looked for among the fixed addresses of hosts, and the range, pool and "
       "subnet that it lies "
       "in are told; a network such as 10.20.0.0/24 among the subnets; anything else among "
       "hardware addresses, "
       "client identifiers, host names, and the names of blocks. Spelling does not count: "
       "00-16-3E-10-00-17 is "
       "0:16:3e:10:0:17. The exit status is 1 when one of them is not there; what is disabled is "
       "not, but told.",
       {kFile, {"WHAT", "what to look for", Offer::kNothing, false, true}},
       Printing(),
       {{"klepur find dhcpd.conf 10.20.0.17", "who has the address, and where it lies"},
        {"klepur find dhcpd.conf 0016.3e10.0017", "the host with this card"}},
       RunFind},
  };
}

std::vector<Command> EditingCommands() {
  return {
      {"add",
       "add a block",
       "Without --in, a host goes to where the hosts of its subnet stand, and anything else to the "
       "top level. It is "
       "laid out as its neighbours are.",
       {kFile,
        {"HEADER", "what the block is: 'host pc-42', 'subnet 10.30.0.0/24'"},
        {"STATEMENT", "what stands in it: 'fixed-address 10.20.0.42'", Offer::kNothing, true,
         true}},
       Both({{"in", 0, "BLOCK", "the block to put it in", Offer::kBlock, {}, true},
             kAfter,
             kBefore,
             {"comment", 0, "TEXT", "a comment above it", Offer::kNothing, {}, true}},
            Saving()),
       {{"klepur add dhcpd.conf 'host pc-42' 'hardware ethernet 00:16:3e:10:00:42' 'fixed-address "
         "10.20.0.42'",
         "a host, beside the others of its subnet"},
        {"klepur add dhcpd.conf pool 'range 10.20.0.200 10.20.0.220' --in 'subnet 10.20.0.0/24'",
         "a pool in a subnet"}},
       RunEdit,
       true},
      {"set",
       "set statements of a block",
       "Each STATEMENT replaces the one of its keyword that stands in the block, the last one of "
       "several, or is "
       "added. allow, deny and ignore of the same thing replace each other.",
       {kFile,
        kBlock,
        {"STATEMENT", "'max-lease-time 7200', 'option routers 10.20.0.1'", Offer::kNothing, false,
         true}},
       Both({kAll}, Saving()),
       {{"klepur set dhcpd.conf 'subnet 10.20.0.0/24' 'max-lease-time 7200'", "in one block"},
        {"klepur set dhcpd.conf --all 'host lab-*' 'next-server 10.20.0.5'", "in many blocks"}},
       RunEdit,
       true},
      {"unset",
       "remove statements of a block",
       "Removes all statements of each KEYWORD right in the block, or the one that is spelled out "
       "whole.",
       {kFile,
        kBlock,
        {"KEYWORD", "max-lease-time, 'option routers', 'range 10.20.0.5 10.20.0.9'",
         Offer::kKeyword, false, true}},
       Both({kAll}, Saving()),
       {{"klepur unset dhcpd.conf 'subnet 10.20.0.0/24' max-lease-time",
         "back to what holds around it"}},
       RunEdit,
       true},
      {"disable",
       "comment out a block, or a statement of it",
       "What is disabled stays in its place as a comment; `list` shows disabled blocks, `enable` "
       "brings them back.",
       {kFile,
        kBlock,
        {"KEYWORD", "the statement, when it is not the whole block", Offer::kKeyword, true}},
       Both({kAll}, Saving()),
       {{"klepur disable dhcpd.conf 'host pc-17'", "the whole host"},
        {"klepur disable dhcpd.conf 'host pc-17' fixed-address", "one statement of it"}},
       RunEdit,
       true},
      {"enable",
       "bring back a block or a statement that is commented out",
       "",
       {kFile,
        {"BLOCK", "the disabled block, or the block with the disabled statement", Offer::kBlock},
        {"KEYWORD", "the statement, when it is not the whole block", Offer::kKeyword, true}},
       Saving(),
       {{"klepur enable dhcpd.conf 'host pc-18'", "the whole host"}},
       RunEdit,
       true},
      {"rename",
       "give a block another name",
       "",
       {kFile, kBlock, {"NAME", "the new name: pc-18; of a subnet its network: 10.21.0.0/24"}},
       Saving(),
       {{"klepur rename dhcpd.conf 'host pc-17' pc-117", "a host; its options stay as they are"}},
       RunEdit,
       true},
      {"move",
       "move a block into another one",
       "The comments that belong to it go with it; only the indentation of its lines changes.",
       {kFile, kBlock},
       Both({{"to",
              0,
              "BLOCK",
              "the block to move it into; global for the top level",
              Offer::kBlock,
              {},
              true},
             kAfter,
             kBefore,
             kAll},
            Saving()),
       {{"klepur move dhcpd.conf 'host pc-17' --to 'subnet 10.20.1.0/24'", "into another subnet"}},
       RunEdit,
       true},
      {"remove",
       "remove blocks",
       "The comments that belong to a block go with it, and are told.",
       {kFile, {"BLOCK", "the blocks, see BLOCKS", Offer::kBlock, false, true}},
       Both({kAll}, Saving()),
       {{"klepur remove dhcpd.conf 'host pc-17'", "a host and its comments"}},
       RunEdit,
       true},
      {"edit",
       "carry out many edits as one",
       "SCRIPT holds an edit a line, in the words of the command line without klepur and FILE: set "
       "'host pc-17' "
       "'max-lease-time 600'. Words are divided as in a shell; # begins a comment. All edits are "
       "carried out, or none: "
       "a line that fails is named, and nothing is written.",
       {kFile, {"SCRIPT", "the file with the edits; - for standard input", Offer::kFile}},
       Saving(),
       {{"klepur edit dhcpd.conf changes.txt", "the edits in a file"}},
       RunScript},
  };
}

std::vector<Command> FileCommands() {
  return {
      {"check",
       "what is wrong with files, and where",
       "Prints the findings as FILE:LINE:COLUMN: SEVERITY: SENTENCE [RULE]. A comment in the file "
       "such as "
       "`# klepur: allow duplicate-hardware-address` silences a rule for what stands below it.",
       {{"FILE", "the configuration files; - for standard input", Offer::kFile, false, true}},
       Both({{"fail-on", 0, "SEVERITY",
              "the least severity that makes the exit status 1: error, unless told "
              "otherwise, warning or note",
              Offer::kChoice, "error warning note"},
             {"off", 0, "RULES", "rules not to apply, with commas between"},
             {"rewrite", 0, "",
              "what programs that rewrite the file with klepur's configuration classes would "
              "change in its meaning instead"},
             {"as", 0, "PATH",
              "what to call FILE in the findings, where it is - or stands for another",
              Offer::kFile},
             {"server", 0, "PATH", "also ask the DHCP server's own check: --server /usr/sbin/dhcpd",
              Offer::kFile}},
            Printing()),
       {{"klepur check dhcpd.conf", "the errors, warnings and notes"},
        {"klepur check --as dhcpd.conf --fail-on warning - < dhcpd.conf",
         "as an editor asks, for text not yet saved"}},
       RunCheck},
      {"format",
       "give whole files one layout",
       "A statement a line, a step of indentation a block, one blank between words, at most one "
       "empty line. Comments "
       "stay where they belong, and blocks of statements on one line stay on it if they fit in 100 "
       "columns.",
       {{"FILE", "the configuration files; - for standard input", Offer::kFile, false, true}},
       Both({{"check", 0, "", "change nothing, and print the files that would change"},
             {"indent", 0, "STEP",
              "a step of indentation: tab, unless told otherwise, or 2, 4 or 8 blanks",
              Offer::kChoice, "tab 2 4 8"}},
            Saving()),
       {{"klepur format --dry-run dhcpd.conf", "what would change"},
        {"klepur format --check dhcpd.conf", "whether something would"}},
       RunFormat},
      {"diff",
       "what differs in meaning between two files",
       "Tells the blocks and statements that were added, removed, changed or moved, whatever the "
       "layout and "
       "the comments are. The exit status is 1 when there are differences.",
       {{"OLD", "the file as it was; - for standard input", Offer::kFile},
        {"NEW", "the file as it is", Offer::kFile}},
       Printing(),
       {{"klepur diff dhcpd.conf.old dhcpd.conf", "from the old file to the new one"}},
       RunDiff},
      {"leases",
       "the records of a leases file",
       "Of a DHCPv4 or DHCPv6 server, in the order of the file: a server writes a new record for "
       "each change, and the last "
       "one of an address counts. Times are as the file has them, in UTC unless the server was "
       "told otherwise.",
       {{"FILE", "the leases file", Offer::kFile}},
       Printing(),
       {{"klepur leases dhcpd.leases", "address, state, times, client and name"}},
       RunLeases},
  };
}

std::vector<Command> OtherCommands() {
  return {
      {"words",
       "the words of the configuration language",
       "Statements, options and declarations: what each is for, what follows it, where it may "
       "stand, and which server "
       "makes use of it.",
       {{"WORD", "only these words, or those that contain them", Offer::kNothing, true, true}},
       Printing(),
       {{"klepur words lease-time", "what there is about lease times"}},
       RunWords},
      {"completion",
       "the completion script of a shell",
       "",
       {{"SHELL", "bash, zsh or fish", Offer::kChoice, false, false, "bash zsh fish"}},
       {},
       {{"klepur completion bash", "to be read by bash: . <(klepur completion bash)"}},
       RunCompletion},
      {"manual",
       "the manual page, as text for scdoc",
       "",
       {},
       {},
       {{"klepur manual", "the source of klepur(1)"}},
       RunManual},
      {"help",
       "how to use a command",
       "",
       {{"COMMAND", "the command", Offer::kNothing, true}},
       {},
       {{"klepur help set", "the same as klepur set --help"}},
       RunHelp},
  };
}

std::vector<Command> AllCommands() {
  std::vector<Command> all;
  for (const auto& part : {LookingCommands(), EditingCommands(), FileCommands(), OtherCommands()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

}  // namespace

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands = AllCommands();
  return commands;
}

const Command* FindCommand(std::string_view name) {
  const auto found = std::find_if(Commands().begin(), Commands().end(),
                                  [name](const Command& command) { return command.name == name; });
  return found == Commands().end() ? nullptr : &*found;
}

std::string_view Purpose() {
  return "Shows, edits and checks the configuration file of the ISC DHCP server, for DHCPv4 and "
         "DHCPv6. An edit changes "
         "the lines that it must and no others, comments and layout stay, and a file is replaced "
         "whole or not at all.";
}

const std::vector<Example>& BlockForms() {
  static const std::vector<Example> forms = {
      {"host pc-17", "the block of this kind and name"},
      {"subnet 10.20.0.0/24", "a subnet; its address alone will do: subnet 10.20.0.0"},
      {"group 2", "the second group of the file, if none is called 2"},
      {"subnet 10.20.0.0 > pool 1", "a block in another one, however deep"},
      {"@112", "the block or statement on line 112"},
      {"global", "the file itself: what stands in no block"},
  };
  return forms;
}

const std::vector<Example>& ExitStatuses() {
  static const std::vector<Example> statuses = {
      {"0", "done"},
      {"1",
       "nothing was found, or more than one; there are findings, differences, or files to format"},
      {"2", "the command line, a script or a given text was not understood"},
      {"3", "a file could not be read or written"},
      {"4",
       "refused: the edit brings in an error, the file changed meanwhile, is locked or could only "
       "be "
       "written in place, or --verify said no"},
  };
  return statuses;
}

}  // namespace klepur::tool
