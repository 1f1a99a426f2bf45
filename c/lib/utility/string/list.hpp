// Lists of strings: joining, cleaning, printing.
#pragma once

#include <string>
#include <vector>

/// Joins the elements with a separator between them; integers in decimal. The empty list gives "".
///
/// @param result  replaced; may be an element of the list.
void strVecJoin(const std::vector<std::string>& list, const char* separator, std::string& result);
void intVecJoin(const std::vector<int>& list, const char* separator, std::string& result);

/// Removes the elements of length 0, in place; an element of blanks stays.
void strVecRemoveEmptyElement(std::vector<std::string>& list);

/// Prints a list, or writes it to a file.
///
/// @param name  what the printed lines call the list; not null.
/// @param path  a file, replaced by one line for each element (fatal path A of openFile). Empty or null:
///              one line "NAME[i] = ELEMENT" for each element goes to the standard output stream, and for an
///              empty list "NAME has zero element!" to the host console.
void strVecPrint(const std::vector<std::string>& list, const char* name, const char* path);
