// Works that are run in turn, and the row of the table that says how they compare.
#ifndef KLEPUR_BENCHMARKS_COMPARE_H
#define KLEPUR_BENCHMARKS_COMPARE_H

#include <functional>
#include <string>
#include <vector>

/// Does a work once and returns the seconds (SecondsFor) that its timed part took.
using Work = std::function<double()>;

/// What a work took in each round.
using Samples = std::vector<double>;

/// Runs all works once in each round, so that whatever else the machine does meets them alike. Each
/// round begins with another one.
/// \return the samples of each work, in the order of `works`.
std::vector<Samples> InTurn(int rounds, const std::vector<Work>& works);

double Median(Samples samples);

/// The median of the ratios of the rounds.
double Ratio(const Samples& ours, const Samples& other);

/// "1.23 us", "4.56 ms" or "7.89 s".
std::string Duration(double seconds);

/// "5.8 MB", of a million bytes each.
std::string Megabytes(double bytes);

/// Prints a row: its cells with a tab between them. A `goal` of 0 is none; else the row says
/// whether `ratio` is at most that.
void PrintRow(const std::string& work, const std::string& ours, const std::string& beside,
              const std::string& other, double ratio, double goal);

/// The row of two works that were run in turn.
void PrintRow(const std::string& work, const Samples& ours, const std::string& beside,
              const Samples& other, double goal);

#endif
