#include "platform/qt_settings.h"

#include <QSettings>
#include <memory>

#include "platform/qt_text.h"

namespace zelmo::platform {

namespace {

std::unique_ptr<QSettings> Open(const QString& ini_file, const std::string& application) {
  if (!ini_file.isEmpty()) return std::make_unique<QSettings>(ini_file, QSettings::IniFormat);
  return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, Q(application),
                                     Q(application));
}

QString KeyOf(const std::string& section, const std::string& key) {
  return Q(section) + QLatin1Char('/') + Q(key);
}

}  // namespace

std::string QtSettings::Get(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& fallback) {
  auto store = Open(ini_file_, application);
  QVariant value = store->value(KeyOf(section, key));
  if (!value.isValid()) return fallback;
  return S(value.toString());
}

void QtSettings::Save(const std::string& application, const std::string& section,
                      const std::string& key, const std::string& value) {
  auto store = Open(ini_file_, application);
  store->setValue(KeyOf(section, key), Q(value));
  store->sync();
}

}  // namespace zelmo::platform
