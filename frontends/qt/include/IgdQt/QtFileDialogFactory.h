#pragma once
// The common file dialogs of the library over QFileDialog.
#include "IGD/CommonFileDialog.h"

namespace igd::qt {

class QtFileDialogFactory : public IFileDialogFactory {
public:
    std::shared_ptr<IFileOpenDialog> CreateOpenDialog() override;
    std::shared_ptr<IFileSaveDialog> CreateSaveDialog() override;
};

} // namespace igd::qt
