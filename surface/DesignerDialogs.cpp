// Each dialog is a function from values to rows.
#include "surface/DesignerDialogs.h"

#include <array>

#include "basic/Text.h"

namespace plinth {

namespace {

constexpr int kFirstId = 101;

DialogRow row(int id, RowKind kind, std::string label) {
  DialogRow out;
  out.id = id;
  out.kind = kind;
  out.label = std::move(label);
  return out;
}

// Language texts carry no access keys outside menus: the first letter becomes one.
std::string withKey(const std::string& text) {
  return text.find('&') == std::string::npos ? "&" + text : text;
}

// A row over a text that outlives the dialog.
DialogRow textRow(int id, RowKind kind, std::string label, std::string& value) {
  DialogRow out = row(id, kind, std::move(label));
  out.get = [&value] { return value; };
  out.set = [&value](const std::string& text) { value = text; };
  return out;
}

}  // namespace

DialogSpec createDialog(CreateChoices& choices, const LabelSource& label,
                        std::function<std::shared_ptr<Image>(const std::string&)> iconImage,
                        std::function<void()> properties) {
  DialogSpec spec;
  spec.title = label(285, "Create Application...");
  spec.ok = label(159, "Create") + "...";
  spec.cancel = label(299, "Cancel");
  spec.okWhen = [&choices] { return !choices.name.empty(); };
  int id = kFirstId;
  spec.rows.push_back(textRow(id++, RowKind::text, "&Name :", choices.name));
  spec.rows.push_back(textRow(id++, RowKind::folder, "&Folder :", choices.folder));
  DialogRow icons =
      textRow(id++, RowKind::list, withKey(label(162, "Select Windows Desk Top Icon...")), choices.icon);
  icons.items = [&choices] { return choices.icons; };
  icons.lines = 5;
  spec.rows.push_back(std::move(icons));
  DialogRow preview = row(id++, RowKind::picture, "");
  preview.image = [&choices, iconImage = std::move(iconImage)] { return iconImage(choices.icon); };
  spec.rows.push_back(std::move(preview));
  DialogRow setup = row(id++, RowKind::check, withKey(label(161, "Create Setup File")));
  setup.get = [] { return std::string(); };
  setup.enabledWhen = [] { return false; };
  setup.toolTip = "This version does not make setup files yet.";
  spec.rows.push_back(std::move(setup));
  DialogRow button = row(id++, RowKind::button, withKey(label(160, "Properties")) + "...");
  button.press = std::move(properties);
  button.toolTip = "Company, version and other texts of the finished program";
  spec.rows.push_back(std::move(button));
  return spec;
}

DialogSpec filePropertiesDialog(FileProperties& properties, const LabelSource& label) {
  static constexpr std::array<const char*, 9> kLabels{
      "&Company Name :",     "File &Description :", "&Legal Copyright :",
      "Legal &Trademarks :", "Product &Name :",     "&Version :",
      "Setup &Password :",   "Setup Lic&ense :",    "Setup &Readme :"};
  constexpr std::size_t kFirstLong = 7;
  DialogSpec spec;
  spec.title = "File Properties";
  spec.ok = label(298, "OK");
  spec.cancel = label(299, "Cancel");
  spec.width = 520;
  int id = kFirstId;
  for (std::size_t i = 0; i < kLabels.size(); ++i) {
    const bool isLong = i >= kFirstLong;
    DialogRow text =
        textRow(id++, isLong ? RowKind::memo : RowKind::text, kLabels[i], properties.comments[i]);
    text.lines = isLong ? 4 : 1;
    spec.rows.push_back(std::move(text));
  }
  DialogRow desk = row(id++, RowKind::check, withKey(label(164, "Setup Desktop Icon")));
  desk.get = [&properties] { return std::string(properties.deskIcon != 0 ? "1" : ""); };
  desk.set = [&properties](const std::string& value) { properties.deskIcon = value.empty() ? 0 : 1; };
  spec.rows.push_back(std::move(desk));
  return spec;
}

DialogSpec aboutDialog(const std::string& version, const LabelSource& label) {
  DialogSpec spec;
  spec.title = label(316, "About") + " Plinth";
  spec.ok = label(298, "OK");
  spec.cancel = "";
  spec.width = 360;
  DialogRow name = row(kFirstId, RowKind::note, "Plinth " + version);
  name.get = [] {
    return std::string("Lays out data-entry forms and makes stand-alone database applications of them.");
  };
  spec.rows.push_back(std::move(name));
  return spec;
}

DialogSpec namePageDialog(std::string& caption, const LabelSource& label) {
  DialogSpec spec;
  spec.title = label(391, "Page");
  spec.ok = label(298, "OK");
  spec.cancel = label(299, "Cancel");
  spec.width = 320;
  spec.rows.push_back(textRow(kFirstId, RowKind::text, withKey(label(146, "Name")) + " :", caption));
  return spec;
}

DialogSpec paperDialog(std::array<std::string, 2>& size, const LabelSource& label) {
  DialogSpec spec;
  spec.title = label(132, "Page Size...");
  spec.ok = label(298, "OK");
  spec.cancel = label(299, "Cancel");
  spec.width = 280;
  spec.rows.push_back(textRow(kFirstId, RowKind::text, "&Width :", size[0]));
  spec.rows.push_back(textRow(kFirstId + 1, RowKind::text, "&Height :", size[1]));
  return spec;
}

DialogSpec languageDialog(std::string& chosen, const std::vector<std::string>& names,
                          const LabelSource& label) {
  DialogSpec spec;
  spec.title = label(177, "Choose a language");
  spec.ok = "";
  spec.cancel = label(299, "Cancel");
  spec.width = 280;
  int id = kFirstId;
  for (const std::string& name : names) {
    DialogRow choice = row(id++, RowKind::choice, replaceAll(name, "&", "&&"));
    choice.press = [&chosen, name] { chosen = name; };
    spec.rows.push_back(std::move(choice));
  }
  return spec;
}

}  // namespace plinth
