// Results as tables, and the forms in which they are written.
#pragma once

#include "functions.hpp"

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "standIn.hpp"

namespace shell {

struct Column {
    std::string name;
    std::vector<double> values;
    std::vector<std::string> texts{}; // instead of values
    bool isSingle = false;            // one value by its nature, not by chance
};

using Table = std::vector<Column>;
using Outputs = std::vector<std::unique_ptr<mxArray>>;

enum class Format { csv, tsv, json, columns, labels, wav };

/// With the point: .csv, .tsv, .json, .txt (columns and labels), .wav.
const char* extensionOf(Format format);

/// The outputs that are shown with one: the curves with the curves and what else is known of their values,
/// the lists with the lists, all others alone; and the times before them.
std::vector<int> shownWith(const Function& function, int output);

/// How many outputs the module is asked for, so that those shown with one are among them, and a matrix's
/// axis.
int countFor(const Function& function, int output);

/// The table of an output and those shown with it: a row for each frame, the times first. A column of a
/// matrix is named by its place on the axis. Segments are start and end in seconds, where the first sample
/// begins and the last one ends, and first and last sample, from 1.
Table tableOf(const Function& function, int output, const Outputs& outputs, double rate);

/// Writes a table: csv and tsv with a line of names, cells in the shortest form that reads back as the same
/// double, missing ones empty; json as an object with an array for each column, or its single value, and
/// what is not finite as null; columns as the first two, between blanks, without names; labels as start, end
/// and a number, between tabs, without names. The format must fit the table: columns want two of them, labels
/// segments; wav is none of these.
///
/// @param file  where it is not "", it stands as the first column (csv, tsv) or as a member (json).
void write(std::ostream& out, const Table& table, Format format, const std::string& file = "");

} // namespace shell
