#pragma once
// Reading the device's categories database "\Categories Database": one record per category with
// its name (property 0x4001, string) and its number (property 0x4002, 16-bit integer).
#include "files/categories.h"

// Adds a record, in sorted order, for every database record with a non-empty name and a number.
// Adds nothing when the database cannot be opened.
void ReadCategoryDatabase(CategoryList& categories);
