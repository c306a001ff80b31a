#pragma once

#include "dstv/NcPart.h"
#include "plugin/ledger/Finding.h"

namespace camjob {

/// Lines of an NC file's header that findings about the member as a whole are told at.
struct HeaderPlaces {
    long mark = 0;
    long quantity = 0;
    long length = 0;
};

HeaderPlaces HeaderPlacesOf(const dstv::NcHeader& header);

/// The line of the NC file that a finding is about; without any other, that of the mark.
long LineOf(const plugin::Finding& finding, const HeaderPlaces& lines);

}  // namespace camjob
