// The host functions that the modules and the library use, with the host's own names and C linkage, in the
// variant of its interface with 32-bit dimensions. A real host brings its own mex.h; this one goes with the
// stand-in host (standIn.hpp).
#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define WAVEPITCH_HOST_API __attribute__((visibility("default")))
#else
#define WAVEPITCH_HOST_API
#endif

// NOLINTBEGIN(modernize-use-using): C spells it so
typedef struct mxArray_tag mxArray;
typedef enum { mxREAL = 0, mxCOMPLEX = 1 } mxComplexity;
typedef enum {
    mxUNKNOWN_CLASS,
    mxCELL_CLASS,
    mxSTRUCT_CLASS,
    mxLOGICAL_CLASS,
    mxCHAR_CLASS,
    mxVOID_CLASS,
    mxDOUBLE_CLASS,
    mxSINGLE_CLASS,
    mxINT8_CLASS,
    mxUINT8_CLASS,
    mxINT16_CLASS,
    mxUINT16_CLASS,
    mxINT32_CLASS,
    mxUINT32_CLASS,
    mxINT64_CLASS,
    mxUINT64_CLASS,
    mxFUNCTION_CLASS
} mxClassID;
// NOLINTEND(modernize-use-using)

#define mxCreateCellMatrix mxCreateCellMatrix_700
#define mxCreateDoubleMatrix mxCreateDoubleMatrix_700
#define mxCreateNumericMatrix mxCreateNumericMatrix_700
#define mxCreateStructMatrix mxCreateStructMatrix_700
#define mxGetCell mxGetCell_700
#define mxGetNumberOfDimensions mxGetNumberOfDimensions_700
#define mxSetCell mxSetCell_700

/// The module's entry point: nlhs output slots, nrhs input arrays. Defined by the module.
WAVEPITCH_HOST_API void mexFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]);

/// Reports an error and ends the call; does not return.
[[noreturn]] WAVEPITCH_HOST_API void mexErrMsgTxt(const char* msg);
/// The name under which the host called the module.
WAVEPITCH_HOST_API const char* mexFunctionName(void);
/// Prints on the host console; returns the number of characters.
WAVEPITCH_HOST_API int mexPrintf(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// A rows x columns matrix of zeros, owned by the host.
WAVEPITCH_HOST_API mxArray* mxCreateDoubleMatrix_700(int rows, int columns, mxComplexity complexity);
/// The same of an integer class or of single.
WAVEPITCH_HOST_API mxArray* mxCreateNumericMatrix_700(int rows, int columns, mxClassID classID,
                                                      mxComplexity complexity);
/// A row of characters.
WAVEPITCH_HOST_API mxArray* mxCreateString(const char* text);
/// A rows x columns struct array with empty fields.
WAVEPITCH_HOST_API mxArray* mxCreateStructMatrix_700(int rows, int columns, int fieldCount,
                                                     const char** fieldNames);
/// Sets a field of element index, from 0; the struct takes over the value.
WAVEPITCH_HOST_API void mxSetField(mxArray* array, int index, const char* fieldName, mxArray* value);

/// A rows x columns cell array; its cells are to be set.
WAVEPITCH_HOST_API mxArray* mxCreateCellMatrix_700(int rows, int columns);
/// Sets the cell of an index from 0, column after column; the cell array takes over the value.
WAVEPITCH_HOST_API void mxSetCell_700(mxArray* array, int index, mxArray* value);
/// The array in the cell of an index; null where a host has left it empty. It belongs to the cell array.
WAVEPITCH_HOST_API mxArray* mxGetCell_700(const mxArray* array, int index);

WAVEPITCH_HOST_API mxClassID mxGetClassID(const mxArray* array);
WAVEPITCH_HOST_API bool mxIsComplex(const mxArray* array);
WAVEPITCH_HOST_API bool mxIsSparse(const mxArray* array);
/// At least 2.
WAVEPITCH_HOST_API int mxGetNumberOfDimensions_700(const mxArray* array);
/// Rows, and the product of all further dimensions.
WAVEPITCH_HOST_API size_t mxGetM(const mxArray* array);
WAVEPITCH_HOST_API size_t mxGetN(const mxArray* array);
/// The array's doubles, column after column. The stand-in host reports an error for an array of another
/// class.
WAVEPITCH_HOST_API double* mxGetPr(const mxArray* array);
/// The array's elements in their class, column after column; of a struct or a cell array, the stand-in host
/// reports an error.
WAVEPITCH_HOST_API void* mxGetData(const mxArray* array);
/// Copies the text of a row of characters with its terminator; 0 if it is one and fits into size bytes.
WAVEPITCH_HOST_API int mxGetString(const mxArray* array, char* text, int size);
/// The first element; not-a-number for an empty array. The stand-in host reports an error for an array that
/// is not of doubles.
WAVEPITCH_HOST_API double mxGetScalar(const mxArray* array);

#ifdef __cplusplus
}
#endif
