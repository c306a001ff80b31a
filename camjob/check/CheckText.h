#pragma once

#include "camjob/check/CheckWriter.h"
#include "camjob/console/OutputStream.h"

namespace camjob {

/// The report for people: tables on one stream, errors as they come on the other.
///
/// Lengths have one decimal. Control characters of a file's texts show as "\u001B".
class CheckTextWriter : public CheckWriter {
  public:
    CheckTextWriter(OutputStream& out, OutputStream& err) : m_out(out), m_err(err) {}

    void Begin() override {}
    void AddRead(const CheckReport& report) override;
    void AddRefused(const dstv::NcError& error) override;
    void End(const CheckSummary& summary) override;

  private:
    OutputStream& m_out;
    OutputStream& m_err;
};

}  // namespace camjob
