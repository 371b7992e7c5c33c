// The rows of the designer's dialogs.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "model/ProjectDocument.h"
#include "surface/DialogRows.h"

namespace plinth {

// A text of the chosen language, or the English one where the language has none.
using LabelSource = std::function<std::string(int label, const char* english)>;

// What the dialog of Create Application decides.
struct CreateChoices {
  std::string name, folder;
  std::vector<std::string> icons;  // file names of the icon folder
  std::string icon;                // one of them, "" for the project's own
};

// choices must outlive the dialog. iconImage: picture of an icon by its name, "" for the project's own.
// properties: opens the file properties.
DialogSpec createDialog(CreateChoices& choices, const LabelSource& label,
                        std::function<std::shared_ptr<Image>(const std::string&)> iconImage,
                        std::function<void()> properties);
DialogSpec filePropertiesDialog(FileProperties& properties, const LabelSource& label);
DialogSpec aboutDialog(const std::string& version, const LabelSource& label);
DialogSpec namePageDialog(std::string& caption, const LabelSource& label);
// Width and height of a page of the person's own size, as texts in the unit of the read-outs.
DialogSpec paperDialog(std::array<std::string, 2>& size, const LabelSource& label);
// One button for each language; chosen: set to one of the names.
DialogSpec languageDialog(std::string& chosen, const std::vector<std::string>& names,
                          const LabelSource& label);

}  // namespace plinth
