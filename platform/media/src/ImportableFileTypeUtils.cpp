#include "Plug/ImportableFileTypeUtils.h"

#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

#include "Browse/ProviderRegistry.h"
#include "PlainDirectoryExtensions.h"

namespace Plug {
namespace {

// "*.MOV", ".mov" and "mov" are one extension; "*" stays, it means any file.
Fnd::WString CanonicalExtension(Fnd::WStringView extension) {
    if (extension.size() >= 2 && extension[0] == u'*' && extension[1] == u'.')
        extension.remove_prefix(2);
    else if (!extension.empty() && extension[0] == u'.')
        extension.remove_prefix(1);
    return Fnd::ToLowerASCII(extension);
}

bool IsKnownType(int type) {
    return type == kImportableFileTypeVideo || type == kImportableFileTypeAudio ||
           type == kImportableFileTypeStill;
}

class Registry {
public:
    Registry() {
        // The plain directory provider is part of every installation; the other providers add
        // theirs when they load.
        Add(kPlainDirectoryProviderName, kImportableFileTypeVideo, PlainDirectoryVideoExtensions());
        Add(kPlainDirectoryProviderName, kImportableFileTypeAudio, PlainDirectoryAudioExtensions());
        Add(kPlainDirectoryProviderName, kImportableFileTypeStill, PlainDirectoryStillExtensions());
        for (const Browse::CardProvider* provider : Browse::ProviderRegistry::CardProviders())
            Add(provider->GetIdentification(), kImportableFileTypeVideo, provider->MediaExtensions());
    }

    void Add(std::string_view provider, int type, const std::vector<Fnd::WString>& extensions) {
        std::lock_guard lock(mutex_);
        auto& kinds = providers_[std::string(provider)];
        for (const Fnd::WString& extension : extensions) {
            Fnd::WString canonical = CanonicalExtension(extension);
            if (!canonical.empty())
                kinds[type].insert(std::move(canonical));
        }
    }

    void Remove(std::string_view provider) {
        std::lock_guard lock(mutex_);
        providers_.erase(std::string(provider));
    }

    std::set<Fnd::WString> Collect(int type) {
        std::set<Fnd::WString> out;
        std::lock_guard lock(mutex_);
        for (const auto& [name, kinds] : providers_)
            for (const auto& [kind, extensions] : kinds)
                if (type == kImportableFileTypeAll || kind == type)
                    out.insert(extensions.begin(), extensions.end());
        return out;
    }

    bool Reads(const Fnd::WString& extension) {
        std::lock_guard lock(mutex_);
        for (const auto& [name, kinds] : providers_)
            for (const auto& [kind, extensions] : kinds)
                if (extensions.count(extension) != 0 || extensions.count(u"*") != 0)
                    return true;
        return false;
    }

private:
    std::mutex mutex_;
    std::map<std::string, std::map<int, std::set<Fnd::WString>>, std::less<>> providers_;
};

Registry& TheRegistry() {
    static Registry registry;
    return registry;
}

} // namespace

std::set<Fnd::WString> ImportableFileTypeUtils::GetImportableFileExtensions(int type) {
    if (type != kImportableFileTypeAll && !IsKnownType(type))
        return {};
    return TheRegistry().Collect(type);
}

bool ImportableFileTypeUtils::IsImportableFile(Fnd::WStringView path) {
    const std::size_t slash = path.find_last_of(u'/');
    const Fnd::WStringView name = slash == Fnd::WStringView::npos ? path : path.substr(slash + 1);
    const std::size_t dot = name.find_last_of(u'.');
    if (dot == Fnd::WStringView::npos || dot == 0)
        return TheRegistry().Reads(u"");
    return TheRegistry().Reads(CanonicalExtension(name.substr(dot)));
}

void ImportableFileTypeUtils::RegisterProviderExtensions(std::string_view provider, ImportableFileType type,
                                                         const std::vector<Fnd::WString>& extensions) {
    if (!IsKnownType(type))
        throw std::invalid_argument("RegisterProviderExtensions: extensions are registered under one kind");
    TheRegistry().Add(provider, type, extensions);
}

void ImportableFileTypeUtils::UnregisterProvider(std::string_view provider) {
    TheRegistry().Remove(provider);
}

} // namespace Plug
