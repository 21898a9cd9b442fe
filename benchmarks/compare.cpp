#include "benchmarks/compare.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace {

std::string Format(const char* form, double value) {
  char text[32];
  std::snprintf(text, sizeof text, form, value);
  return text;
}

std::string Verdict(double ratio, double goal) {
  if (goal == 0) return "-";
  return Format("%.2f: ", goal) + (ratio <= goal ? "met" : "not met");
}

}  // namespace

std::vector<Samples> InTurn(int rounds, const std::vector<Work>& works) {
  std::vector<Samples> samples(works.size());
  for (std::size_t round = 0; round < static_cast<std::size_t>(rounds); ++round) {
    for (std::size_t turn = 0; turn < works.size(); ++turn) {
      const std::size_t next = (round + turn) % works.size();
      samples[next].push_back(works[next]());
    }
  }
  return samples;
}

double Median(Samples samples) {
  std::sort(samples.begin(), samples.end());
  const std::size_t half = samples.size() / 2;
  return samples.size() % 2 == 1 ? samples[half] : (samples[half - 1] + samples[half]) / 2;
}

double Ratio(const Samples& ours, const Samples& other) {
  Samples ratios;
  for (std::size_t round = 0; round < ours.size(); ++round) {
    ratios.push_back(ours[round] / other[round]);
  }
  return Median(ratios);
}

std::string Duration(double seconds) {
  if (seconds < 1e-3) return Format("%.3g us", seconds * 1e6);
  if (seconds < 1) return Format("%.3g ms", seconds * 1e3);
  return Format("%.3g s", seconds);
}

std::string Megabytes(double bytes) {
  return Format("%.1f MB", bytes / 1e6);
}

void PrintRow(const std::string& work, const std::string& ours, const std::string& beside,
              const std::string& other, double ratio, double goal) {
  std::printf("%s\t%s\t%s\t%s\t%.2f\t%s\n", work.c_str(), ours.c_str(), beside.c_str(),
              other.c_str(), ratio, Verdict(ratio, goal).c_str());
  std::fflush(stdout);
}

void PrintRow(const std::string& work, const Samples& ours, const std::string& beside,
              const Samples& other, double goal) {
  PrintRow(work, Duration(Median(ours)), beside, Duration(Median(other)), Ratio(ours, other), goal);
}
