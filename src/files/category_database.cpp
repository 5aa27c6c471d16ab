#include "files/category_database.h"

void ReadCategoryDatabase(CategoryList& categories) {}
