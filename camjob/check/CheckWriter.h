#pragma once

#include "camjob/check/CheckReport.h"
#include "camjob/check/CheckSummary.h"
#include "dstv/NcNote.h"

namespace camjob {

/// A form of the report. Gets each file once, in order, then the summary.
class CheckWriter {
  public:
    virtual ~CheckWriter() = default;
    virtual void Begin() = 0;
    virtual void AddRead(const CheckReport& report) = 0;
    virtual void AddRefused(const dstv::NcError& error) = 0;
    virtual void End(const CheckSummary& summary) = 0;
};

}  // namespace camjob
