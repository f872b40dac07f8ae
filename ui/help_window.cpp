#include "ui/help_window.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QUrl>
#include <QVBoxLayout>

#include "core/text_file.h"
#include "ui/qt_text.h"

namespace zelmo::ui {

namespace {

QUrl PageUrl(const std::string& path) { return QUrl::fromLocalFile(Q(path)); }

}  // namespace

HelpWindow::HelpWindow(HelpManual manual, QWidget* parent)
    : QDialog(parent), manual_(std::move(manual)) {
  setWindowTitle("ZELMO-QRN Help");
  browser_ = new QTextBrowser;
  browser_->setOpenExternalLinks(true);
  browser_->setSearchPaths({Q(manual_.folder())});
  connect(browser_, &QTextBrowser::sourceChanged, this, [this] {
    setWindowTitle(browser_->documentTitle().isEmpty()
                       ? QString("ZELMO-QRN Help")
                       : browser_->documentTitle() + " - ZELMO-QRN Help");
  });

  contents_ = new QListWidget;
  for (const HelpPage& page : manual_.pages()) {
    auto* item = new QListWidgetItem(Q(page.title), contents_);
    item->setData(Qt::UserRole, Q(manual_.PathOf(page)));
  }
  auto open_item = [this](QListWidgetItem* item) {
    if (item) ShowPage(S(item->data(Qt::UserRole).toString()));
  };
  connect(contents_, &QListWidget::itemClicked, this, open_item);

  search_box_ = new QLineEdit;
  search_box_->setPlaceholderText("Words to find");
  found_ = new QListWidget;
  connect(found_, &QListWidget::itemClicked, this, open_item);
  connect(search_box_, &QLineEdit::returnPressed, this, [this] { RunSearch(search_box_->text()); });
  auto* search_button = new QPushButton("&Search");
  connect(search_button, &QPushButton::clicked, this, [this] { RunSearch(search_box_->text()); });
  auto* search_tab = new QWidget;
  auto* search_layout = new QVBoxLayout(search_tab);
  auto* search_row = new QHBoxLayout;
  search_row->addWidget(search_box_);
  search_row->addWidget(search_button);
  search_layout->addLayout(search_row);
  search_layout->addWidget(found_);

  auto* tabs = new QTabWidget;
  tabs->addTab(contents_, "&Contents");
  tabs->addTab(search_tab, "Searc&h");

  auto* splitter = new QSplitter;
  splitter->addWidget(tabs);
  splitter->addWidget(browser_);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({260, 640});

  auto* back = new QPushButton("&Back");
  auto* forward = new QPushButton("&Forward");
  auto* home = new QPushButton("C&ontents page");
  auto* close = new QPushButton("&Close");
  connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
  connect(forward, &QPushButton::clicked, browser_, &QTextBrowser::forward);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(home, &QPushButton::clicked, this, [this] {
    if (!manual_.pages().empty()) ShowPage(manual_.PathOf(manual_.pages().front()));
  });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(back);
  buttons->addWidget(forward);
  buttons->addWidget(home);
  buttons->addStretch();
  buttons->addWidget(close);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(splitter, 1);
  layout->addLayout(buttons);
  resize(960, 680);
}

void HelpWindow::ShowPage(const std::string& path) {
  browser_->setSource(PageUrl(path));
  for (int i = 0; i < contents_->count(); ++i) {
    if (contents_->item(i)->data(Qt::UserRole).toString() == Q(path)) {
      contents_->setCurrentRow(i);
    }
  }
}

void HelpWindow::RunSearch(const QString& text) {
  found_->clear();
  std::vector<const HelpPage*> pages = manual_.Search(S(text));
  for (const HelpPage* page : pages) {
    auto* item = new QListWidgetItem(Q(page->title), found_);
    item->setData(Qt::UserRole, Q(manual_.PathOf(*page)));
  }
  if (pages.empty() && !text.trimmed().isEmpty()) {
    auto* item = new QListWidgetItem("No page holds these words.", found_);
    item->setFlags(Qt::NoItemFlags);
  }
}

}  // namespace zelmo::ui
