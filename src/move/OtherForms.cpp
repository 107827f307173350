#include "move/OtherForms.h"

#include <algorithm>
#include <map>
#include <vector>

#include "model/PlaylistTypes.h"
#include "move/Companion.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

/// One list in a folder of a player.
struct Form {
  String path;
  String name;   // folded, without its extension
  String plain;  // the same without a number at its end
  std::optional<String> content;
};
using Forms = std::vector<Form>;

bool IsFolderOfPlayer(StringView name) {
  if (EqualsIgnoreCase(name, kCompanionFolder)) return true;
  const std::vector<const PlaylistType*> types = NativeTypes();
  return std::any_of(types.begin(), types.end(), [name](const PlaylistType* type) {
    return EqualsIgnoreCase(type->playerFolder, name);
  });
}

/// Lists of one name are told apart by numbers: "Mix12" and "Mix (3)".
String WithoutNumber(StringView name) {
  const bool isMarked = name.ends_with(u')');
  StringView rest = name.substr(0, name.size() - (isMarked ? 1 : 0));
  while (!rest.empty() && IsDigit(rest.back())) rest.remove_suffix(1);
  if (!isMarked) return String(rest);
  constexpr StringView kMark = u" (";
  return rest.ends_with(kMark) ? String(rest.substr(0, rest.size() - kMark.size())) : String(name);
}

Form FormOf(const String& path) {
  const String name = Fold(BaseName(path));
  return {path, name, WithoutNumber(name), std::nullopt};
}

/// The folders of the players, by their folded names, in each folder that has one for players of
/// today.
std::map<String, std::map<String, Forms>> Families(std::span<const String> lists) {
  std::map<String, std::map<String, Forms>> families;
  for (const String& path : lists) {
    const StringView folder = ParentFolder(path);
    if (!IsFolderOfPlayer(LastComponent(folder))) continue;
    families[Fold(ParentFolder(folder))][Fold(LastComponent(folder))].push_back(FormOf(path));
  }
  std::erase_if(families,
                [](const auto& family) { return !family.second.contains(Fold(kCompanionFolder)); });
  return families;
}

/// Finds for the forms of one player's folder those that stand for them, each for one.
class Matching {
 public:
  explicit Matching(const Forms& leaders) : leaders_(leaders), isTaken_(leaders.size()) {}

  bool Match(const Form& form, String Form::*name) {
    for (std::size_t i = 0; i < leaders_.size(); ++i) {
      if (isTaken_[i] || leaders_[i].*name != form.*name) continue;
      if (!form.content || leaders_[i].content != form.content) continue;
      return isTaken_[i] = true;
    }
    return false;
  }

 private:
  const Forms& leaders_;
  std::vector<bool> isTaken_;
};

}  // namespace

OtherForms::OtherForms(std::span<const String> lists, const ContentOf& contentOf) {
  for (auto& [place, folders] : Families(lists)) {
    for (auto& [player, forms] : folders) {
      for (Form& form : forms) form.content = contentOf(form.path);
    }
    Forms leaders = std::move(folders.extract(Fold(kCompanionFolder)).mapped());
    for (auto& [player, forms] : folders) {
      Matching matching(leaders);
      for (String Form::*const name : {&Form::name, &Form::plain}) {
        std::erase_if(forms, [&](const Form& form) {
          const bool isOther = matching.Match(form, name);
          if (isOther) others_.insert(form.path);
          return isOther;
        });
      }
      // What no other list stands for may stand for those of the players that follow.
      leaders.insert(leaders.end(), forms.begin(), forms.end());
    }
  }
}

}  // namespace norvo
