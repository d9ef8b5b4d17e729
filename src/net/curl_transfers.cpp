#include "net/http_transfers.h"
