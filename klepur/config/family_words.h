// Internal: what each address family must bring for ConfigFile.
#ifndef KLEPUR_CONFIG_FAMILY_WORDS_H
#define KLEPUR_CONFIG_FAMILY_WORDS_H

namespace klepur::internal {

/// Specialised for each vocabulary: its table of statements, its table of blocks, and one small
/// function for each place where the families truly differ. config4/dhcp_words.h shows all that is
/// wanted.
template <class Vocabulary>
struct FamilyWords;

}  // namespace klepur::internal

#endif
