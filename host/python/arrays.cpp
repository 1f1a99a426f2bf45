#include "arrays.hpp"

#include <algorithm>
#include <iterator>

namespace py = pybind11;

namespace {

/// A class of the host's, and NumPy's name for it.
struct Class {
    mxClassID id;
    char kind;
    py::ssize_t size;
};

constexpr Class classes[] = {{mxDOUBLE_CLASS, 'f', 8}, {mxSINGLE_CLASS, 'f', 4}, {mxLOGICAL_CLASS, 'b', 1},
                             {mxINT8_CLASS, 'i', 1},   {mxINT16_CLASS, 'i', 2},  {mxINT32_CLASS, 'i', 4},
                             {mxUINT8_CLASS, 'u', 1},  {mxUINT16_CLASS, 'u', 2}, {mxUINT32_CLASS, 'u', 4}};

mxClassID classOf(const py::dtype& type) {
    const auto* const found = std::find_if(std::begin(classes), std::end(classes), [&](const Class& c) {
        return c.kind == type.kind() && c.size == type.itemsize();
    });
    return found == std::end(classes) ? mxUNKNOWN_CLASS : found->id;
}

const Class& classOf(mxClassID id) {
    return *std::find_if(std::begin(classes), std::end(classes), [=](const Class& c) { return c.id == id; });
}

mxArray characters(const std::string& text) {
    return {text.empty() ? 0U : 1U, text.size(), {}, mxCHAR_CLASS, text};
}

} // namespace

mxArray hostArray(const py::handle& value) {
    if (py::isinstance<py::bytes>(value)) return characters(value.cast<std::string>());
    if (py::isinstance<py::list>(value)) {
        const auto cells = py::reinterpret_borrow<py::list>(value);
        mxArray result{1, cells.size(), {}, mxCELL_CLASS};
        for (const py::handle cell : cells) result.fields.push_back(hostArray(cell));
        return result;
    }
    const auto array = value.cast<py::array>();
    const auto size = static_cast<size_t>(array.size());
    const size_t rows = array.ndim() < 2 ? 1 : static_cast<size_t>(array.shape(0));
    mxArray result{rows, rows == 0 ? 0 : size / rows, {}, classOf(array.dtype())};
    result.borrowed = array.data();
    result.dimensions = std::max(2, static_cast<int>(array.ndim()));
    return result;
}

py::str pythonText(const std::string& text) {
    PyObject* decoded =
        PyUnicode_DecodeUTF8(text.data(), static_cast<py::ssize_t>(text.size()), "surrogateescape");
    if (!decoded) throw py::error_already_set();
    return py::reinterpret_steal<py::str>(decoded);
}

py::object pythonObject(std::unique_ptr<mxArray> array) {
    if (array->classID == mxCHAR_CLASS) return pythonText(array->bytes);
    if (array->classID == mxSTRUCT_CLASS) {
        py::dict fields;
        for (size_t i = 0; i < array->fields.size(); ++i)
            fields[py::str(array->fieldNames[i])] =
                pythonObject(std::make_unique<mxArray>(std::move(array->fields[i])));
        return fields;
    }
    if (array->classID == mxCELL_CLASS) {
        py::list cells;
        for (mxArray& cell : array->fields)
            cells.append(pythonObject(std::make_unique<mxArray>(std::move(cell))));
        return cells;
    }
    const Class& c = classOf(array->classID);
    const auto rows = static_cast<py::ssize_t>(array->rows);
    const auto columns = static_cast<py::ssize_t>(array->columns);
    const void* elements = mxGetData(array.get());
    const py::capsule owner(array.get(), [](void* owned) { delete static_cast<mxArray*>(owned); });
    array.release(); // NOLINT(bugprone-unused-return-value): the capsule has it
    const py::dtype type(c.kind + std::to_string(c.size));
    return py::array(type, {rows, columns}, {c.size, c.size * rows}, elements, owner);
}
