#include "ui/help_manual.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "core/text_file.h"

namespace zelmo::ui {

namespace {

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// The text of an HTML page without its tags, the entities of the pages
// left as they stand.
std::string PlainText(const std::string& html) {
  std::string text;
  bool in_tag = false;
  for (char c : html) {
    if (c == '<') {
      in_tag = true;
      text += ' ';
    } else if (c == '>') {
      in_tag = false;
    } else if (!in_tag) {
      text += c;
    }
  }
  return text;
}

}  // namespace

HelpManual::HelpManual(std::string folder) : folder_(std::move(folder)) {
  auto lines = ReadAllLines(JoinPath(folder_, kHelpContents));
  if (!lines) return;
  for (const std::string& line : *lines) {
    size_t first = line.find('\t');
    size_t second = first == std::string::npos ? first : line.find('\t', first + 1);
    if (second == std::string::npos) continue;
    HelpPage page;
    try {
      page.context = std::stoi(line.substr(0, first));
    } catch (const std::exception&) {
      continue;
    }
    page.file = TrimBlanks(line.substr(first + 1, second - first - 1));
    page.title = TrimBlanks(line.substr(second + 1));
    if (!page.file.empty()) pages_.push_back(page);
  }
}

const HelpPage* HelpManual::PageOf(int context) const {
  for (const HelpPage& page : pages_) {
    if (page.context == context && context != 0) return &page;
  }
  return nullptr;
}

std::string HelpManual::PathOf(const HelpPage& page) const { return JoinPath(folder_, page.file); }

std::vector<const HelpPage*> HelpManual::Search(const std::string& query) const {
  std::vector<std::string> words;
  std::istringstream in(Lower(query));
  for (std::string word; in >> word;) words.push_back(word);
  std::vector<const HelpPage*> found;
  if (words.empty()) return found;
  for (const HelpPage& page : pages_) {
    auto bytes = ReadAllBytes(PathOf(page));
    if (!bytes) continue;
    std::string text = Lower(PlainText(*bytes));
    if (std::all_of(words.begin(), words.end(),
                    [&](const std::string& w) { return text.find(w) != std::string::npos; })) {
      found.push_back(&page);
    }
  }
  return found;
}

HelpRequest ResolveHelp(const HelpManual& manual, int context) {
  HelpRequest request;
  if (!manual.Installed()) {
    request.message =
        "The help pages are not installed: " + JoinPath(manual.folder(), kHelpContents) +
        " cannot be read.";
    return request;
  }
  const HelpPage* page = manual.PageOf(context);
  if (!page) {
    request.message =
        "There is no help page for this screen (help context " + std::to_string(context) + ").";
    return request;
  }
  if (!FileCanOpen(manual.PathOf(*page))) {
    request.message = "The help page " + manual.PathOf(*page) + " is missing.";
    return request;
  }
  request.page_path = manual.PathOf(*page);
  return request;
}

}  // namespace zelmo::ui
