#include "support/app_state.h"

AppState g_app = {};
