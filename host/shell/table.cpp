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
    Table table = {{"start", {}, {}}, {"end", {}, {}}, {"firstSample", {}, {}}, {"lastSample", {}, {}}};
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
                      {}};
        for (size_t frame = 0; frame < matrix.columns; ++frame)
            column.values.push_back(matrix.data[frame * matrix.rows + row]);
        table.push_back(std::move(column));
    }
}

bool isText(const mxArray& array) {
    return array.classID == mxCHAR_CLASS;
}

/// Numbers, a text, or a cell array of texts.
Column columnOf(const std::string& name, const mxArray& array, bool isSingle) {
    Column column{name, array.data, {}, isSingle};
    if (isText(array)) column.texts = {array.bytes};
    for (const mxArray& text : array.fields) column.texts.push_back(text.bytes);
    return column;
}

/// The fields of a struct, but for curves, which have no place in a table. Their name tells them, which an
/// empty cell array has, too: tables have the same columns whether anything is found or not.
void addFields(Table& table, const mxArray& record, bool areSingle) {
    for (size_t i = 0; i < record.fields.size(); ++i) {
        const mxArray& field = record.fields[i];
        if (record.fieldNames[i] == "contour") continue;
        table.push_back(
            columnOf(record.fieldNames[i], field, areSingle && (field.data.size() == 1 || isText(field))));
    }
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
    for (const Column& column : table) rows = std::max({rows, column.values.size(), column.texts.size()});
    return rows;
}

std::string cell(const Column& column, size_t row) {
    if (!column.texts.empty()) return row < column.texts.size() ? quoted(column.texts[row]) : "";
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
        if (column.isSingle && !column.texts.empty())
            object[column.name] = column.texts.front();
        else if (column.isSingle)
            object[column.name] = column.values.at(0);
        else if (!column.texts.empty())
            object[column.name] = column.texts;
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
        const bool tellsOfIt =
            form == Form::curve && function.outputs[static_cast<size_t>(i)].form == Form::details;
        if (i == output || goesWithIt || tellsOfIt) shown.push_back(i);
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
        else if (its.form == Form::record || its.form == Form::details)
            addFields(table, array, its.form == Form::record);
        else
            table.push_back(columnOf(its.name, array, isSingle));
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
