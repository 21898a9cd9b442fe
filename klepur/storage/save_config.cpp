#include <klepur/storage/save_config.h>

#include <utility>

#include <klepur/storage/saving.h>
#include <klepur/storage/target.h>

namespace klepur {

/// What saving needs to know of a configuration file, whichever its family.
struct internal::ConfigFileAccess {
  template <class Vocabulary>
  static SaveReport Save(ConfigFile<Vocabulary>& file, const SaveOptions& options) {
    if (!file.IsReady() || file.confFileName.empty()) {
      throw Error(ErrorCode::kNotFound, "there is no configuration file to save");
    }
    SaveWishes wishes = SaveWishes::Of(options);
    KnownFile known;
    known.path = file.confFileName;
    known.target = TargetOf(known.path, IfMissing::kMake);
    if (file.isRead == 0) wishes.forced = true;
    known.state = *file.read_;
    const std::string text = file.Text();
    auto facts = internal::Save(known, Pieces(text), wishes);
    *file.read_ = known.state;
    return SaveReport(std::move(facts));
  }
};

SaveReport SaveSafely(DhcpConfigFile& file, const SaveOptions& options) {
  return internal::ConfigFileAccess::Save(file, options);
}

SaveReport SaveSafely(Dhcpv6ConfigFile& file, const SaveOptions& options) {
  return internal::ConfigFileAccess::Save(file, options);
}

}  // namespace klepur
