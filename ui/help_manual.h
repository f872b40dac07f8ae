// The program's manual: HTML pages in the program tree's Help_English folder
// and its list contexts.txt, one page a line as "context TAB file TAB
// title" (context 0 for a page no screen opens), in the order of the
// contents. Each screen's Help opens the page of its context number.
#pragma once

#include <string>
#include <vector>

namespace zelmo::ui {

inline constexpr const char* kHelpContents = "contexts.txt";

struct HelpPage {
  int context = 0;
  std::string file;
  std::string title;
};

class HelpManual {
 public:
  // Reads the list of the folder; an absent or unreadable list leaves the
  // manual empty.
  explicit HelpManual(std::string folder);

  bool Installed() const { return !pages_.empty(); }
  const std::string& folder() const { return folder_; }
  const std::vector<HelpPage>& pages() const { return pages_; }
  // The page of a context number, or nothing.
  const HelpPage* PageOf(int context) const;
  std::string PathOf(const HelpPage& page) const;
  // The pages whose text (tags left out) holds every word of the query,
  // letters compared without case, in the order of the contents.
  std::vector<const HelpPage*> Search(const std::string& query) const;

 private:
  std::string folder_;
  std::vector<HelpPage> pages_;
};

// What Help on a screen does: the page to show, or the message that says
// why there is none.
struct HelpRequest {
  std::string page_path;
  std::string message;
};
HelpRequest ResolveHelp(const HelpManual& manual, int context);

}  // namespace zelmo::ui
