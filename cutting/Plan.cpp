#include "cutting/Plan.h"

#include <algorithm>

namespace cutting {

Length OffCutOf(const Stock& stock, Length pieceLength, Count pieces) {
    return std::max<Length>(0, stock.GetUsable() - pieceLength - pieces * stock.kerf);
}

}  // namespace cutting
