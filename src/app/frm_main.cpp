#include "app/program_state.h"
