#pragma once
#include <string>
#include <vector>

#include "Browse/ProviderWrapper.h"
#include "Fnd/WString.h"

namespace IGD {

// Whether a provider identification names the plain directory provider: true for an empty one,
// one without "Provider" in its last dotted part, or one whose last part ends "ProviderDirectory".
bool IsPlainDirectoryProvider(const std::string& identification);

// Appends the files the provider lists for the entry name of directory; strings and arrays of
// strings (at any depth) count, in order.
void ReadProviderExtraPaths(const Browse::ProviderWrapper* provider, const std::string& directory,
                            const Fnd::WString& name, std::vector<Fnd::WString>& out);

// The provider's clip name for the entry; out is left as it is when there is none.
void ReadProviderName(const Browse::ProviderWrapper* provider, const std::string& directory,
                      const Fnd::WString& name, Fnd::WString& out);

} // namespace IGD
