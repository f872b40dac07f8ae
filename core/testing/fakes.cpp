#include "core/testing/fakes.h"

#include <atomic>
#include <fstream>
#include <ostream>
#include <random>
#include <sstream>
#include <stdexcept>

#include "core/controls.h"
#include "core/text_file.h"

namespace zelmo::testing {

namespace fs = std::filesystem;

void PrintTo(const ShownMessage& message, std::ostream* out) {
  *out << "{\"" << message.text << "\", " << message.style << ", \"" << message.title << "\"}";
}

void PrintTo(const RunCall& call, std::ostream* out) {
  *out << "{\"" << call.program << "\", {";
  for (const auto& argument : call.arguments) *out << "\"" << argument << "\" ";
  *out << "}, " << call.window_mode << "}";
}

Answer FakeDialogs::MsgBox(const std::string& text, int style, const std::string& title) {
  messages.push_back({text, style, title});
  if (!answers.empty()) {
    Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  switch (mb::ButtonsOf(style)) {
    case mb::kOkCancel:
      return Answer::kOk;
    case mb::kYesNoCancel:
    case mb::kYesNo:
      return Answer::kYes;
    case mb::kRetryCancel:
    case mb::kAbortRetryIgnore:
      return Answer::kRetry;
    default:
      return Answer::kOk;
  }
}

void FakeDialogs::ShowModal(Form& form) {
  shown_forms.push_back(form.name());
  form.unloaded = false;
  form.Load();
  if (form.unloaded) return;
  auto script = screens.find(form.name());
  if (script != screens.end()) script->second(form);
}

std::optional<std::string> FakeDialogs::ChooseFolder(const std::string&, const std::string&) {
  if (folders.empty()) return std::nullopt;
  auto folder = folders.front();
  folders.pop_front();
  return folder;
}

std::optional<std::string> FakeDialogs::ChooseFile(const FileChoice& choice) {
  file_choices.push_back(choice);
  if (files.empty()) return std::nullopt;
  auto file = files.front();
  files.pop_front();
  return file;
}

std::vector<std::string> FakeDialogs::Texts() const {
  std::vector<std::string> texts;
  for (const auto& m : messages) texts.push_back(m.text);
  return texts;
}

const ShownMessage& FakeDialogs::Last() const {
  static const ShownMessage none;
  return messages.empty() ? none : messages.back();
}

void FakeDialogs::Clear() {
  messages.clear();
  shown_forms.clear();
  file_choices.clear();
}

std::string FakeSettings::Get(const std::string& application, const std::string& section,
                              const std::string& key, const std::string& fallback) {
  auto it = values.find(application + "/" + section + "/" + key);
  return it == values.end() ? fallback : it->second;
}

void FakeSettings::Save(const std::string& application, const std::string& section,
                        const std::string& key, const std::string& value) {
  values[application + "/" + section + "/" + key] = value;
  ++saves;
}

bool FakeProcessRunner::Run(const std::string& program, const std::vector<std::string>& arguments,
                            int window_mode) {
  RunCall call{program, arguments, window_mode};
  {
    // Cases run side by side start their modules from threads of their own.
    std::lock_guard<std::mutex> lock(mutex);
    calls.push_back(call);
    if (cannot_start.count(program)) return false;
  }
  if (on_run) on_run(call);
  return true;
}

void FakeDesktop::ShowHelp(const std::string& help_file, int context) {
  help_calls.emplace_back(help_file, context);
}

bool FakeDesktop::OpenWithRegistered(const std::string& path) {
  opened.push_back(path);
  return has_registered_program;
}

std::string FakeDesktop::FindExecutable(const std::string&) {
  return has_registered_program ? registered_program : std::string();
}

FakeSession::FakeSession() {
  session.dialogs = &dialogs;
  session.settings = &settings;
  session.processes = &processes;
  session.desktop = &desktop;
}

TempDir::TempDir() {
  static std::atomic<int> counter{0};
  fs::path base =
      fs::temp_directory_path() /
      ("zelmo-test-" + std::to_string(std::random_device{}()) + "-" + std::to_string(counter++));
  fs::remove_all(base);
  fs::create_directories(base);
  path_ = FromFsPath(base);
}

TempDir::~TempDir() {
  std::error_code ignored;
  fs::remove_all(ToFsPath(path_), ignored);
}

std::string TempDir::operator/(const std::string& name) const { return JoinPath(path_, name); }

std::string ReadBytes(const std::string& path) {
  std::ifstream in(ToFsPath(path), std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::ostringstream buffer;
  buffer << in.rdbuf();
  return buffer.str();
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  fs::path p = ToFsPath(path);
  fs::create_directories(p.parent_path());
  std::ofstream out(p, std::ios::binary | std::ios::trunc);
  out << bytes;
}

bool Exists(const std::string& path) { return fs::exists(ToFsPath(path)); }

std::string FileErrorText(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const FileError& error) {
    return error.UserText();
  }
  return "no error";
}

Strings Words(const std::string& text) {
  Strings words;
  std::istringstream in(text);
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

namespace {
void Set(Form& form, std::string act, bool events) {
  const bool twice = !act.empty() && act.back() == '*';
  if (twice) act.pop_back();
  const size_t at = act.find_first_of("=#");
  Control* control = form.Find(act.substr(0, at));
  if (!control) throw std::invalid_argument("no control: " + act);
  auto fire = [events](const std::function<void()>& event) {
    if (events && event) event();
  };
  if (at != std::string::npos && act[at] == '=') {
    control->text = act.substr(at + 1);
    fire(control->on_change);
    return;
  }
  if (at != std::string::npos) {
    const bool box =
        control->kind() == ControlKind::kCheckBox || control->kind() == ControlKind::kOption;
    (box ? control->value : control->list_index) = std::stoi(act.substr(at + 1));
  }
  fire(twice ? control->on_dbl_click : control->on_click);
}
}  // namespace

void Fill(Form& form, const Strings& settings) {
  for (const std::string& setting : settings) Set(form, setting, false);
}

void Act(Form& form, const Strings& acts) {
  for (const std::string& act : acts) Set(form, act, true);
}

std::vector<std::string> GridRows(const Grid& grid) {
  std::vector<std::string> rows;
  for (int r = 0; r < grid.rows(); ++r) {
    std::string row;
    for (int c = 0; c < grid.cols(); ++c) row += (c ? "|" : "") + grid.Cell(r, c);
    rows.push_back(row);
  }
  return rows;
}

}  // namespace zelmo::testing
