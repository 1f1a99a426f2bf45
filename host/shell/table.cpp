#include "table.hpp"

#include "output.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace shell {

namespace {

bool areShownTogether(Form form) {
    return form == Form::curve || form == Form::number || form == Form::list;
}

Table segmentTable(const mxArray& segments, double rate) {
    Table table = {{"start", {}, ""}, {"end", {}, ""}, {"firstSample", {}, ""}, {"lastSample", {}, ""}};
    for (size_t i = 0; i < segments.rows; ++i) {
        const double first = segments.data[i];
        const double last = segments.data[segments.rows + i];
        table[0].values.push_back((first - 1) / rate);
        table[1].values.push_back(last / rate);
        table[2].values.push_back(first);
        table[3].values.push_back(last);
    }
    return table;
}

void addMatrix(Table& table, const Function& function, const Output& output, const Outputs& outputs,
               const mxArray& matrix) {
    const int axis = function.find(output.across);
    for (size_t row = 0; row < matrix.rows; ++row) {
        Column column{axis < 0 ? output.across + std::to_string(row)
                               : shortest(outputs[static_cast<size_t>(axis)]->data[row]),
                      {},
                      ""};
        for (size_t frame = 0; frame < matrix.columns; ++frame)
            column.values.push_back(matrix.data[frame * matrix.rows + row]);
        table.push_back(std::move(column));
    }
}

void addFields(Table& table, const mxArray& record) {
    for (size_t i = 0; i < record.fields.size(); ++i)
        table.push_back({record.fieldNames[i], record.fields[i].data, record.fields[i].bytes,
                         record.fields[i].data.size() == 1});
}

/// A text as one cell: between quotes where it holds what separates cells.
std::string quoted(const std::string& text) {
    if (text.find_first_of(",\t\r\n\"") == std::string::npos) return text;
    std::string result = "\"";
    for (const char c : text) result += c == '"' ? std::string("\"\"") : std::string(1, c);
    return result + '"';
}

size_t rowsOf(const Table& table) {
    size_t rows = 0;
    for (const Column& column : table) rows = std::max(rows, column.text.empty() ? column.values.size() : 1);
    return rows;
}

std::string cell(const Column& column, size_t row) {
    if (!column.text.empty()) return row == 0 ? quoted(column.text) : "";
    return row < column.values.size() ? shortest(column.values[row]) : "";
}

void writeCells(std::ostream& out, const Table& table, char separator, const std::string& file) {
    if (!file.empty()) out << "file" << separator;
    for (const Column& column : table)
        out << (&column == &table.front() ? "" : std::string(1, separator)) << quoted(column.name);
    out << '\n';
    const size_t rows = rowsOf(table);
    for (size_t row = 0; row < rows; ++row) {
        if (!file.empty()) out << quoted(file) << separator;
        for (const Column& column : table)
            out << (&column == &table.front() ? "" : std::string(1, separator)) << cell(column, row);
        out << '\n';
    }
}

void writeJson(std::ostream& out, const Table& table, const std::string& file) {
    nlohmann::ordered_json object;
    if (!file.empty()) object["file"] = file;
    for (const Column& column : table) {
        if (!column.text.empty())
            object[column.name] = column.text;
        else if (column.isSingle)
            object[column.name] = column.values.at(0);
        else
            object[column.name] = column.values;
    }
    out << object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

void writeColumns(std::ostream& out, const Table& table) {
    for (size_t row = 0; row < rowsOf(table); ++row)
        out << cell(table.at(0), row) << ' ' << cell(table.at(1), row) << '\n';
}

void writeLabels(std::ostream& out, const Table& table) {
    for (size_t row = 0; row < rowsOf(table); ++row)
        out << cell(table.at(0), row) << '\t' << cell(table.at(1), row) << '\t' << row + 1 << '\n';
}

} // namespace

const char* extensionOf(Format format) {
    switch (format) {
    case Format::csv:
        return ".csv";
    case Format::tsv:
        return ".tsv";
    case Format::json:
        return ".json";
    case Format::wav:
        return ".wav";
    default:
        return ".txt";
    }
}

std::vector<int> shownWith(const Function& function, int output) {
    const Form form = function.outputs[static_cast<size_t>(output)].form;
    std::vector<int> shown;
    const int time = function.find(Form::time);
    if (time >= 0 && (form == Form::curve || form == Form::number || form == Form::matrix))
        shown.push_back(time);
    for (int i = 0; i < static_cast<int>(function.outputs.size()); ++i) {
        const bool goesWithIt =
            areShownTogether(form) && function.outputs[static_cast<size_t>(i)].form == form;
        if (i == output || goesWithIt) shown.push_back(i);
    }
    return shown;
}

int countFor(const Function& function, int output) {
    const std::vector<int> shown = shownWith(function, output);
    const int axis = function.find(function.outputs[static_cast<size_t>(output)].across);
    return std::max(axis, *std::max_element(shown.begin(), shown.end())) + 1;
}

Table tableOf(const Function& function, int output, const Outputs& outputs, double rate) {
    const bool isSingle = function.outputs[static_cast<size_t>(output)].form == Form::number;
    Table table;
    for (const int i : shownWith(function, output)) {
        const Output& its = function.outputs[static_cast<size_t>(i)];
        const mxArray& array = *outputs[static_cast<size_t>(i)];
        if (its.form == Form::segments) return segmentTable(array, rate);
        if (its.form == Form::matrix)
            addMatrix(table, function, its, outputs, array);
        else if (its.form == Form::record)
            addFields(table, array);
        else
            table.push_back({its.name, array.data, array.bytes, isSingle});
    }
    return table;
}

void write(std::ostream& out, const Table& table, Format format, const std::string& file) {
    switch (format) {
    case Format::csv:
        return writeCells(out, table, ',', file);
    case Format::tsv:
        return writeCells(out, table, '\t', file);
    case Format::json:
        return writeJson(out, table, file);
    case Format::columns:
        return writeColumns(out, table);
    default:
        return writeLabels(out, table);
    }
}

} // namespace shell
