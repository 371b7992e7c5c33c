// Undo and Redo of every change to the project. The history keeps the project as it last knew it and finds
// out by itself what a command changed, so no command can forget to tell.
#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "model/ObjectKinds.h"
#include "model/ProjectDocument.h"

namespace plinth {

class History {
 public:
  static constexpr std::size_t kSteps = 500;  // older ones are forgotten

  // Another project stands in the document: nothing to undo, this is the state that changes are found
  // against.
  void start(const ProjectDocument& document);
  // Takes the document's state as known without making a step: what a save put right is no person's change.
  void adopt(const ProjectDocument& document) { known_ = document; }

  // Makes a step of what changed since the last call; `words` say what was done ("move of F12"). False, and
  // no step, when nothing changed. Steps that follow each other with one mergeKey, "" never, become one: the
  // letters of a word, the moves of a drag; when that brings back what was before, the step is gone. Steps
  // that could be redone are forgotten.
  bool commit(const ProjectDocument& document, const std::string& words, const std::string& mergeKey = "");
  // The next commit starts a step of its own whatever its mergeKey.
  void seal() { mergeKey_.clear(); }
  // A commit with this key would become part of the step that undo() would take.
  bool mergesWith(const std::string& mergeKey) const {
    return !mergeKey.empty() && mergeKey == mergeKey_ && canUndo();
  }

  bool canUndo() const { return !undo_.empty(); }
  bool canRedo() const { return !redo_.empty(); }
  // Words of the step that undo() or redo() would take; "" for none.
  std::string undoWords() const { return canUndo() ? undo_.back().words : ""; }
  std::string redoWords() const { return canRedo() ? redo_.back().words : ""; }
  // Brings the document to the state before the last step, or after it again, and marks it as changed.
  // Changes that were not committed stay where the step does not touch them. False when there is no step.
  bool undo(ProjectDocument& document) { return step(document, undo_, redo_); }
  bool redo(ProjectDocument& document) { return step(document, redo_, undo_); }
  std::size_t steps() const { return undo_.size(); }

 private:
  // The other state of a kind's table: its size when that differs, and the rows that differ or that only it
  // has.
  template <class Row>
  struct TableState {
    std::optional<std::size_t> size;
    std::map<std::size_t, Row> rows;
  };
  using Tables =
      std::tuple<TableState<FieldRow>, TableState<MemoRow>, TableState<ComboRow>, TableState<PictureRow>,
                 TableState<CheckRow>, TableState<TitleRow>, TableState<LineRow>, TableState<SquareRow>,
                 TableState<ScriptRow>, TableState<ButtonRow>>;
  struct Step {
    std::string words;
    Tables tables;
    std::optional<ProjectValues> values;
  };
  using Steps = std::deque<Step>;

  std::optional<Step> difference(const ProjectDocument& document);
  static void merge(Step& older, Step newer);
  static bool dropEqual(Step& step, const ProjectDocument& document);
  bool step(ProjectDocument& document, Steps& from, Steps& to);

  ProjectDocument known_;
  Steps undo_, redo_;
  std::string mergeKey_;
};

}  // namespace plinth
