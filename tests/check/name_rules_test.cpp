// Names that are declared and used.
#include <gtest/gtest.h>

#include "tests/check/checking.h"

namespace klepur::test {
namespace {

const std::string kPool = "subnet 10.0.0.0 netmask 255.255.255.0 { pool { range 10.0.0.9; %; } }\n";

std::string Pool(const std::string& statement) {
  std::string text = kPool;
  return text.replace(text.find('%'), 1, statement);
}

TEST(UndeclaredClass, IsNotDeclaredAbove) {
  ExpectFoundIn("subclass \"c\" 1:2;\n", "1:10 undeclared-class\n");
  ExpectFoundIn("class \"c\" { match hardware; }\nsubclass \"c\" 1:2;\n", "");
  ExpectFoundIn("class \"C\" { match hardware; lease limit 4; }\nsubclass \"c\" 1:2;\n",
                "2:10 undeclared-class\n");
  ExpectFoundIn("subclass \"c\" 1:2;\nclass \"c\" { match hardware; }\n",
                "1:10 undeclared-class <- 2\n");
  ExpectFoundIn(Pool("allow members of \"c\""), "1:81 undeclared-class\n");
  ExpectFoundIn("include \"classes\";\nsubclass \"c\" 1:2;\n", "");
  ExpectFoundIn("subclass \"c\" 1:2;\ninclude \"classes\";\n", "1:10 undeclared-class\n");
}

const std::string kPeer =
    "failover peer \"f\" { primary; address 10.0.0.1; peer address 10.0.0.2; mclt 60; split 128; "
    "}\n";

TEST(FailoverPeer, IsDeclaredAndUsed) {
  ExpectFoundIn(kPeer + Pool("failover peer \"f\""), "");
  ExpectFoundIn(Pool("failover peer \"f\""), "1:78 undeclared-failover-peer\n");
  ExpectFoundIn(kPeer + Pool("failover peer \"F\""), "2:78 undeclared-failover-peer\n");
  ExpectFoundIn(kPeer + "include \"pools\";\n", "");
}

TEST(Group, IsDeclaredAndUsed) {
  ExpectFoundIn("group g { next-server 10.0.0.1; }\nhost a { uid 1; group g; }\n", "");
  ExpectFoundIn("host a { uid 1; group g; }\n", "1:23 undeclared-group\n");
  ExpectFoundIn("group g { next-server 10.0.0.1; }\n", "1:1 unused-group\n");
  ExpectFoundIn("group g { host a { uid 1; } }\n", "");
  ExpectFoundIn("group { next-server 10.0.0.1; }\n", "");
}

const std::string kKey = "key k { algorithm hmac-md5; secret \"aGVsbG8=\"; }\n";

TEST(Key, IsDeclaredAndUsed) {
  ExpectFoundIn(kKey + "zone a. { primary 10.0.0.1; key K; }\n", "");
  ExpectFoundIn(kKey + "omapi-key k;\n", "");
  ExpectFoundIn("class \"c\" { omapi-key k; }\n", "");
  ExpectFoundIn("omapi-key k;\n" + kKey, "1:11 undeclared-key <- 2\n");
  ExpectFoundIn("zone a. { primary 10.0.0.1; key k; }\n", "1:33 undeclared-key\n");
  ExpectFoundIn(kKey, "1:1 unused-key\n");
}

TEST(Option, IsDefinedAndUsed) {
  ExpectFoundIn("option x code 200 = text;\noption x \"a\";\n", "");
  ExpectFoundIn("option x code 200 = text;\nif option X = \"a\" { next-server 10.0.0.1; }\n", "");
  ExpectFoundIn("option x \"a\";\noption x code 200 = text;\n",
                "1:8 option-before-definition <- 2\n");
  ExpectFoundIn("option x code 200 = text;\n", "1:1 unused-option\n");
  ExpectFoundIn("option x code 200 = text;\ninclude \"more\";\n", "");
  ExpectFoundIn("option routers code 3 = text;\n", "");
  const std::string space =
      "option space s;\noption s.a code 1 = text;\noption s.b code 2 = text;\n"
      "option c code 200 = encapsulate s;\n";
  ExpectFoundIn(space + "option s.a \"x\";\n", "");
  ExpectFoundIn(space, "2:1 unused-option\n3:1 unused-option\n4:1 unused-option\n");
}

TEST(UnusedClass, HasNoStatementsOfItsOwn) {
  ExpectFoundIn("class \"c\" { match hardware; }\n", "1:1 unused-class\n");
  ExpectFoundIn("class \"c\" { match if known; next-server 10.0.0.1; }\n", "");
  ExpectFoundIn("class \"c\" { match hardware; }\n" + Pool("deny members of \"c\""), "");
}

TEST(MissingInclude, IsToldOfPathsFromTheRoot) {
  ExpectFoundIn("include \"/nonexistent/klepur\";\n", "1:9 missing-include\n");
  ExpectFoundIn("include \"/dev/null\";\n", "");
  ExpectFoundIn("include \"nonexistent/klepur\";\n", "");
}

}  // namespace
}  // namespace klepur::test
