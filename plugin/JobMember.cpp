#include "plugin/Job.h"
