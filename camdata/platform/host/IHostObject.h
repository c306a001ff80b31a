#pragma once

#include <array>
#include <cstdint>

/// Identifier of a host interface, in the usual order of its printed form:
/// {data1-data2-data3-data4[0..1]-data4[2..7]}.
struct HostInterfaceId {
    std::uint32_t data1;
    std::uint16_t data2;
    std::uint16_t data3;
    std::array<std::uint8_t, 8> data4;

    friend bool operator==(const HostInterfaceId&, const HostInterfaceId&) = default;
};

/// Result code of a host call: negative means that the call failed.
using HostResult = std::int32_t;

inline constexpr HostResult kHostOk = 0;
inline constexpr HostResult kHostNoInterface = static_cast<HostResult>(0x80004002);
inline constexpr HostResult kHostFail = static_cast<HostResult>(0x80004005);

/// Base of the host's reference-counted objects. Never deleted through this interface.
class IHostObject {
  public:
    /// Asks for another interface of the same object. On success `*object` holds it, with a
    /// reference that the caller owns; otherwise `*object` becomes null.
    virtual HostResult queryInterface(const HostInterfaceId& id, IHostObject** object) = 0;
    virtual unsigned long addRef() = 0;
    /// Gives one reference back; the last one ends the object's life.
    virtual unsigned long release() = 0;

  protected:
    ~IHostObject() = default;
};
