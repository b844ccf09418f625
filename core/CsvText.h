// The CSV files that the schedule preview and the run-time history write: one form for both,
// fields quoted where they need it and every line ended by CR LF.
#pragma once

#include <string>
#include <vector>

namespace vantrellion {

// A text as one field of a CSV line: as it stands, or in double quotes (its own quotes doubled)
// when it holds a comma, a quote or a line break.
std::string CsvField(const std::string& text);

// One line of a CSV file: the fields, each as CsvField gives it, between commas, and CR LF.
std::string CsvLine(const std::vector<std::string>& fields);

}  // namespace vantrellion
