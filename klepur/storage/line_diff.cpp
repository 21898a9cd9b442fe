#include <klepur/storage/line_diff.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <optional>

namespace klepur::internal {
namespace {

using Lines = std::vector<Line>;

/// How many steps from each end are tried. Their cost grows with the square.
constexpr std::ptrdiff_t kMostSteps = 512;
/// How often lines that stand once divide what they divided before.
constexpr int kMostDivisions = 8;

struct Region {
  std::size_t old_begin;
  std::size_t old_end;
  std::size_t new_begin;
  std::size_t new_end;
  int divisions;

  bool OneIsEmpty() const { return old_begin == old_end || new_begin == new_end; }
};

/// A place in both texts.
struct Spot {
  std::size_t in_old;
  std::size_t in_new;
};

void TrimEqualEnds(const Lines& old_lines, const Lines& new_lines, Region& region) {
  while (!region.OneIsEmpty() && old_lines[region.old_begin] == new_lines[region.new_begin]) {
    ++region.old_begin;
    ++region.new_begin;
  }
  while (!region.OneIsEmpty() && old_lines[region.old_end - 1] == new_lines[region.new_end - 1]) {
    --region.old_end;
    --region.new_end;
  }
}

/// The search for a spot on a shortest way through a region, from both of its ends at once.
///
/// A diagonal holds the spots with the same difference between their places in the old and the new text. For each
/// one, forward_ and backward_ have the place in the old text that is reached on it in so many steps.
class MiddleSearch {
 public:
  MiddleSearch(const Lines& old_lines, const Lines& new_lines, const Region& region)
      : old_(old_lines.data() + region.old_begin),
        new_(new_lines.data() + region.new_begin),
        old_size_(static_cast<std::ptrdiff_t>(region.old_end - region.old_begin)),
        new_size_(static_cast<std::ptrdiff_t>(region.new_end - region.new_begin)),
        most_(std::min((old_size_ + new_size_ + 1) / 2, kMostSteps)),
        forward_(static_cast<std::size_t>(2 * most_ + 3), kNowhere),
        backward_(static_cast<std::size_t>(2 * most_ + 3), kNowhere) {
    Forward(1) = 0;
    Backward(-1) = old_size_;
  }

  /// Nothing when the way is too long. The spot is relative to the region.
  std::optional<Spot> Run() {
    for (std::ptrdiff_t steps = 0; steps <= most_; ++steps) {
      if (const auto spot = GoForward(steps)) return spot;
      if (const auto spot = GoBackward(steps)) return spot;
    }
    return std::nullopt;
  }

 private:
  static constexpr std::ptrdiff_t kNowhere = -1;

  // Diagonals of the forward search are counted from the start, those of the backward search from the end.
  std::ptrdiff_t& Forward(std::ptrdiff_t diagonal) {
    return forward_[static_cast<std::size_t>(diagonal + most_ + 1)];
  }
  std::ptrdiff_t& Backward(std::ptrdiff_t diagonal) {
    return backward_[static_cast<std::size_t>(diagonal + most_ + 1)];
  }
  std::ptrdiff_t Shift() const { return old_size_ - new_size_; }

  static Spot At(std::ptrdiff_t in_old, std::ptrdiff_t diagonal) {
    return {static_cast<std::size_t>(in_old), static_cast<std::size_t>(in_old - diagonal)};
  }

  /// Where a diagonal is reached from its neighbours, one step from where these were: kNowhere when only from
  /// outside of the region.
  std::ptrdiff_t EnterForward(std::ptrdiff_t k) {
    const std::ptrdiff_t down = Forward(k + 1);
    const bool by_new_line = down != kNowhere && down - k <= new_size_;
    const std::ptrdiff_t left = Forward(k - 1);
    const bool by_old_line = left != kNowhere && left < old_size_;
    if (!by_new_line) return by_old_line ? left + 1 : kNowhere;
    return by_old_line ? std::max(down, left + 1) : down;
  }

  std::ptrdiff_t EnterBackward(std::ptrdiff_t k) {
    const std::ptrdiff_t up = Backward(k - 1);
    const bool by_new_line = up != kNowhere && up - k - Shift() >= 0;
    const std::ptrdiff_t right = Backward(k + 1);
    const bool by_old_line = right > 0;
    if (!by_new_line) return by_old_line ? right - 1 : kNowhere;
    return by_old_line ? std::min(up, right - 1) : up;
  }

  std::optional<Spot> GoForward(std::ptrdiff_t steps) {
    for (std::ptrdiff_t k = -steps; k <= steps; k += 2) {
      std::ptrdiff_t x = EnterForward(k);
      while (x != kNowhere && x < old_size_ && x - k < new_size_ && old_[x] == new_[x - k]) ++x;
      Forward(k) = x;
      const std::ptrdiff_t other = k - Shift();  // the same diagonal, counted from the end
      if (x == kNowhere || Shift() % 2 == 0 || other <= -steps || other >= steps) continue;
      if (Backward(other) != kNowhere && x >= Backward(other)) return At(x, k);
    }
    return std::nullopt;
  }

  std::optional<Spot> GoBackward(std::ptrdiff_t steps) {
    for (std::ptrdiff_t k = -steps; k <= steps; k += 2) {
      std::ptrdiff_t x = EnterBackward(k);
      const std::ptrdiff_t other = k + Shift();  // the same diagonal, counted from the start
      while (x > 0 && x > other && old_[x - 1] == new_[x - other - 1]) --x;
      Backward(k) = x;
      if (x == kNowhere || Shift() % 2 != 0 || other < -steps || other > steps) continue;
      if (Forward(other) != kNowhere && x <= Forward(other)) return At(x, other);
    }
    return std::nullopt;
  }

  const Line* old_;
  const Line* new_;
  std::ptrdiff_t old_size_;
  std::ptrdiff_t new_size_;
  std::ptrdiff_t most_;
  std::vector<std::ptrdiff_t> forward_;
  std::vector<std::ptrdiff_t> backward_;
};

/// The lines that stand once between two places, by hash.
std::vector<std::size_t> StandingOnce(const Lines& lines, std::size_t begin, std::size_t end) {
  std::vector<std::size_t> order(end - begin);
  for (std::size_t i = 0; i != order.size(); ++i) order[i] = begin + i;
  std::sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
    return lines[left].hash != lines[right].hash ? lines[left].hash < lines[right].hash
                                                 : left < right;
  });
  std::vector<std::size_t> once;
  for (std::size_t i = 0; i != order.size(); ++i) {
    const std::uint32_t hash = lines[order[i]].hash;
    const bool before = i != 0 && lines[order[i - 1]].hash == hash;
    const bool behind = i + 1 != order.size() && lines[order[i + 1]].hash == hash;
    if (!before && !behind) once.push_back(order[i]);
  }
  return once;
}

/// Lines that stand once in both texts of a region, by their places in the old one.
std::vector<Spot> StandingOnceInBoth(const Lines& old_lines, const Lines& new_lines,
                                     const Region& region) {
  const auto in_old = StandingOnce(old_lines, region.old_begin, region.old_end);
  const auto in_new = StandingOnce(new_lines, region.new_begin, region.new_end);
  std::vector<Spot> both;
  auto candidate = in_new.begin();
  for (const std::size_t line : in_old) {
    while (candidate != in_new.end() && new_lines[*candidate].hash < old_lines[line].hash) {
      ++candidate;
    }
    if (candidate == in_new.end()) break;
    if (new_lines[*candidate] == old_lines[line]) both.push_back({line, *candidate});
  }
  std::sort(both.begin(), both.end(),
            [](const Spot& left, const Spot& right) { return left.in_old < right.in_old; });
  return both;
}

/// The longest series of spots whose places grow in both texts.
std::vector<Spot> LongestRising(const std::vector<Spot>& spots) {
  std::vector<std::size_t> ends;  // of the series of each length, the spot with the least end
  std::vector<std::size_t> before(spots.size());
  for (std::size_t i = 0; i != spots.size(); ++i) {
    const auto place = std::lower_bound(
        ends.begin(), ends.end(), spots[i].in_new,
        [&](std::size_t end, std::size_t in_new) { return spots[end].in_new < in_new; });
    before[i] = place == ends.begin() ? i : *(place - 1);
    if (place == ends.end()) {
      ends.push_back(i);
    } else {
      *place = i;
    }
  }
  std::vector<Spot> rising(ends.size());
  std::size_t at = ends.empty() ? 0 : ends.back();
  for (std::size_t i = rising.size(); i-- != 0; at = before[at]) rising[i] = spots[at];
  return rising;
}

/// Divides regions until it is known of each line whether it stays.
class Division {
 public:
  Division(const Lines& old_lines, const Lines& new_lines)
      : old_(old_lines),
        new_(new_lines),
        removed_(old_lines.size(), false),
        added_(new_lines.size(), false) {}

  std::vector<LineChange> Run() {
    open_.push_back({0, old_.size(), 0, new_.size(), 0});
    while (!open_.empty()) {
      const Region region = open_.back();
      open_.pop_back();
      Divide(region);
    }
    return Changes();
  }

 private:
  void Divide(Region region) {
    TrimEqualEnds(old_, new_, region);
    if (region.OneIsEmpty()) return Change(region);
    if (const auto middle = MiddleSearch(old_, new_, region).Run()) {
      const std::size_t in_old = region.old_begin + middle->in_old;
      const std::size_t in_new = region.new_begin + middle->in_new;
      open_.push_back({in_old, region.old_end, in_new, region.new_end, region.divisions});
      open_.push_back({region.old_begin, in_old, region.new_begin, in_new, region.divisions});
      return;
    }
    const std::vector<Spot> fast = region.divisions == kMostDivisions
                                       ? std::vector<Spot>()
                                       : LongestRising(StandingOnceInBoth(old_, new_, region));
    if (fast.empty()) return Change(region);
    for (const Spot& spot : fast) {
      open_.push_back(
          {region.old_begin, spot.in_old, region.new_begin, spot.in_new, region.divisions + 1});
      region.old_begin = spot.in_old + 1;
      region.new_begin = spot.in_new + 1;
    }
    ++region.divisions;
    open_.push_back(region);
  }

  void Change(const Region& region) {
    std::fill(removed_.begin() + static_cast<std::ptrdiff_t>(region.old_begin),
              removed_.begin() + static_cast<std::ptrdiff_t>(region.old_end), true);
    std::fill(added_.begin() + static_cast<std::ptrdiff_t>(region.new_begin),
              added_.begin() + static_cast<std::ptrdiff_t>(region.new_end), true);
  }

  std::vector<LineChange> Changes() const {
    std::vector<LineChange> changes;
    std::size_t in_old = 0;
    std::size_t in_new = 0;
    while (in_old != old_.size() || in_new != new_.size()) {
      LineChange change = {in_old, in_old, in_new, in_new};
      while (change.old_end != old_.size() && removed_[change.old_end]) ++change.old_end;
      while (change.new_end != new_.size() && added_[change.new_end]) ++change.new_end;
      in_old = change.old_end;
      in_new = change.new_end;
      if (change.old_begin != in_old || change.new_begin != in_new) {
        changes.push_back(change);
      } else {
        ++in_old;
        ++in_new;
      }
    }
    return changes;
  }

  const Lines& old_;
  const Lines& new_;
  std::vector<bool> removed_;
  std::vector<bool> added_;
  std::vector<Region> open_;
};

}  // namespace

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  lines.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end == std::string_view::npos ? end : end + 1);
    const std::size_t hash = std::hash<std::string_view>{}(line);
    lines.push_back({line.data(), static_cast<std::uint32_t>(line.size()),
                     static_cast<std::uint32_t>(hash ^ (hash >> 32))});
    text.remove_prefix(line.size());
  }
  return lines;
}

std::vector<LineChange> ChangesBetween(const std::vector<Line>& old_lines,
                                       const std::vector<Line>& new_lines) {
  return Division(old_lines, new_lines).Run();
}

}  // namespace klepur::internal
