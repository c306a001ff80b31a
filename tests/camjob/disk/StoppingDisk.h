#pragma once

#include "camjob/disk/StagingDisk.h"

#include <cstdlib>
#include <limits>

/// A disk on which something happens instead of one of the changes, counted from 1; where it fails,
/// reads count too. Flushes are changes, but left out for speed.
class StoppingDisk : public camjob::StagingDisk {
  public:
    enum class Stop {
        kFail,  ///< the disk is full, also for reads
        kCut,   ///< raises Cut, and nothing changes any more, as after the end of the process
        kEnd,   ///< the process ends hard
    };
    struct Cut {};
    static constexpr int kEndCode = 77;

    /// Never.
    StoppingDisk() = default;
    StoppingDisk(int moment, Stop stop) : m_moment(moment), m_stop(stop) {}
    bool WasReached() const { return m_count >= m_moment; }

    std::error_code MakeFolder(const std::filesystem::path& folder) override {
        return Change([&] { return StagingDisk::MakeFolder(folder); });
    }
    std::error_code WriteFile(const std::filesystem::path& file, std::string_view bytes) override {
        return Change([&] { return StagingDisk::WriteFile(file, bytes); });
    }
    std::error_code FlushFile(const std::filesystem::path&) override { return Change(NoChange); }
    std::error_code FlushFolder(const std::filesystem::path&) override { return Change(NoChange); }
    std::error_code Rename(const std::filesystem::path& from,
                           const std::filesystem::path& to) override {
        return Change([&] { return StagingDisk::Rename(from, to); });
    }
    std::error_code RemoveFile(const std::filesystem::path& file) override {
        return Change([&] { return StagingDisk::RemoveFile(file); });
    }
    std::error_code RemoveFolder(const std::filesystem::path& folder) override {
        return Change([&] { return StagingDisk::RemoveFolder(folder); });
    }

    std::error_code GetStatus(const std::filesystem::path& path,
                              std::filesystem::file_status& status) override {
        return Read([&] { return StagingDisk::GetStatus(path, status); });
    }
    std::error_code GetLinkStatus(const std::filesystem::path& path,
                                  std::filesystem::file_status& status) override {
        return Read([&] { return StagingDisk::GetLinkStatus(path, status); });
    }
    std::error_code ListFolder(const std::filesystem::path& folder,
                               std::vector<std::string>& names) override {
        return Read([&] { return StagingDisk::ListFolder(folder, names); });
    }
    std::error_code ReadFile(const std::filesystem::path& file, std::string& bytes) override {
        return Read([&] { return StagingDisk::ReadFile(file, bytes); });
    }
    std::error_code AreSameFile(const std::filesystem::path& a,
                                const std::filesystem::path& b,
                                bool& areSame) override {
        return Read([&] { return StagingDisk::AreSameFile(a, b, areSame); });
    }
    std::error_code CheckFree(const std::filesystem::path& file) override {
        return Read([&] { return StagingDisk::CheckFree(file); });
    }

  private:
    static std::error_code NoChange() { return {}; }

    template <typename Call>
    std::error_code Change(Call call) {
        if (m_stop == Stop::kCut && WasReached())
            return {};
        return ++m_count == m_moment ? StopNow() : call();
    }
    /// After the end of the process nobody reads.
    template <typename Call>
    std::error_code Read(Call call) {
        return m_stop == Stop::kFail ? Change(call) : call();
    }
    std::error_code StopNow() const {
        if (m_stop == Stop::kEnd)
            std::_Exit(kEndCode);
        if (m_stop == Stop::kCut)
            throw Cut();
        return std::make_error_code(std::errc::no_space_on_device);
    }

    int m_moment = std::numeric_limits<int>::max();
    int m_count = 0;
    Stop m_stop = Stop::kFail;
};
