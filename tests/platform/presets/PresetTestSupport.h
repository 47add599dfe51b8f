#pragma once
// A preset service on a temporary tree (user presets under "home", system presets under "system"),
// with every load warning collected, and short helpers to make and inspect presets.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "QL/FilePresetService.h"
#include "QL/IQLPresetManager.h"
#include "QL/PresetDocument.h"
#include "QL/PresetFieldFactory.h"
#include "QL/PresetFileWriter.h"
#include "QL/PresetLoadWarnings.h"
#include "support/PresetFields.h"
#include "support/TempTree.h"

namespace igd::test {

class PresetServiceTest : public ::testing::Test {
protected:
    PresetServiceTest() {
        tree.MakeFolder("system/rename");
        tree.MakeFolder("system/metadata");
        QL::SetPresetLoadWarningHandler([this](const QL::PresetLoadWarning& w) { warnings.push_back(w); });
        service = NewService();
    }
    ~PresetServiceTest() override { QL::SetPresetLoadWarningHandler(nullptr); }

    // A service with nothing shared with earlier ones: what a new process sees.
    std::unique_ptr<QL::FilePresetService> NewService() const {
        return std::make_unique<QL::FilePresetService>(
            QL::PresetFolders{tree.NativePath("home/presets"), tree.NativePath("system")});
    }
    Fnd::InterfaceRef<QL::IQLPresetManager>
    Manager(QL::_QLPresetCategory category = QL::kQLPresetCategoryRename) {
        return service->InstantiateManager(category);
    }
    std::string UserFile(std::string_view fileName, std::string_view folder = "rename") const {
        return tree.NativePath("home/presets/" + std::string(folder) + "/" + std::string(fileName));
    }
    // A preset file written directly, as another program or an older session would leave it.
    std::string WriteUserFile(std::string_view fileName, std::string_view bytes,
                              std::string_view folder = "rename") {
        return Fnd::ToUTF8(
            tree.MakeFile("home/presets/" + std::string(folder) + "/" + std::string(fileName), bytes));
    }
    static std::string RenameDocument(std::u16string_view name) {
        QL::PresetDocument document;
        document.name = Fnd::WString(name);
        document.fields = {{QL::kQLFieldFileName, u"", u"", false},
                           {QL::kQLFieldCustomText, u"", u"_x", false}};
        return QL::SerializePresetDocument(document);
    }
    // Saves a new preset of the manager's category with the given fields; answers it.
    Fnd::InterfaceRef<QL::IQLPreset> SaveNew(QL::IQLPresetManager& manager, std::u16string_view name,
                                             const QL::PresetFieldList& fields) {
        auto preset = manager.CreatePreset();
        preset->SetFields(fields);
        preset->SetName(Fnd::WString(name));
        EXPECT_EQ(manager.SavePreset(preset, Fnd::WString(name), u"", false, Fnd::WString(name)),
                  QL::kPresetOK);
        return preset;
    }
    static std::vector<std::string> Names(const QL::PresetList& presets) {
        std::vector<std::string> names;
        for (const auto& preset : presets)
            names.push_back(Fnd::ToUTF8(preset->GetName(true)));
        return names;
    }

    TempTree tree;
    std::vector<QL::PresetLoadWarning> warnings;
    std::unique_ptr<QL::FilePresetService> service;
};

} // namespace igd::test
