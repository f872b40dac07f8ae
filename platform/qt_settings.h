// The settings store on QSettings: per user, under the application's name,
// one group per section.
#pragma once

#include <QString>

#include "core/ports.h"

namespace zelmo::platform {

class QtSettings : public SettingsStore {
 public:
  // The user's own store of the platform (the registry, a .plist, a file
  // under ~/.config).
  QtSettings() = default;
  // A store in one INI file, for tests and portable installs.
  explicit QtSettings(QString ini_file) : ini_file_(std::move(ini_file)) {}

  std::string Get(const std::string& application, const std::string& section,
                  const std::string& key, const std::string& fallback) override;
  void Save(const std::string& application, const std::string& section, const std::string& key,
            const std::string& value) override;

 private:
  QString ini_file_;
};

}  // namespace zelmo::platform
