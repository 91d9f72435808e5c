// Reading the reference cases and comparing with them.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace morvane::golden {

/// A file or folder of the reference cases.
std::filesystem::path file(const std::string& name);

/// The measurement of a reference case.
std::string measurement(const std::string& name);

/// The lines of a reference file, `\xNN` turned back into bytes. Expects that there are some.
std::vector<std::string> lines(const std::filesystem::path& path);

/// The words of a line.
std::vector<std::string> words(const std::string& line);

/// The number a word stands for, "nan", "inf" and "-inf" included.
double number(const std::string& word);

/// All reference cases below the reference folder that hold the file `name`, e.g. "codes/4".
std::vector<std::string> casesWith(const std::string& name);

/// Whether a computed value in single precision is the expected one: 2e-5 relative or 1e-6
/// absolute.
bool isClose(double value, double expected);

/// Whether a value that was read, not computed, is exactly that of `word`: a double, or a float
/// that is written with nine digits.
bool isExactly(double value, const std::string& word);
bool isExactly(float value, const std::string& word);

/// Expects `log` (the text written) to be the lines of a reference log: all that begin with "= ",
/// and all or none of those with "? ". `{path}` stands for `path`. The reference allows other lines
/// between them; the program writes none.
void expectLog(const std::filesystem::path& expected, const std::string& log,
               const std::string& path);

/// Expects `line` to be `name` and then `floats`, within `tolerance`. A word "-" stands for
/// `unwritten`, "?" for anything.
void expectFloats(const std::string& name, std::span<const float> floats, const std::string& line,
                  double tolerance, float unwritten = 0.0F);

}  // namespace morvane::golden
