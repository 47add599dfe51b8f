#pragma once
// One provider per camera card family.
#include <memory>

#include "Browse/CardProvider.h"

namespace Browse {

inline constexpr const char* kIdentificationPrefix = "com.veltrix.Kestrel.Provider";

std::unique_ptr<CardProvider> MakeP2Provider();
std::unique_ptr<CardProvider> MakeXdcamExProvider();
std::unique_ptr<CardProvider> MakeXavcSProvider();
std::unique_ptr<CardProvider> MakeAvchdProvider();
std::unique_ptr<CardProvider> MakeGoProProvider();
std::unique_ptr<CardProvider> MakeXdcamProvider();
std::unique_ptr<CardProvider> MakeCanonXfProvider();
std::unique_ptr<CardProvider> MakeCanonXfAvcProvider();
std::unique_ptr<CardProvider> MakeRedProvider();
std::unique_ptr<CardProvider> MakeArriRawProvider();
std::unique_ptr<CardProvider> MakeDjiProvider();

} // namespace Browse
