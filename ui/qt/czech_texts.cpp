#include "ui/qt/czech_texts.h"

#include <QHash>
#include <QString>

namespace velta::qt {

QString CzechTexts::translate(const char* context, const char* source,
                              const char* /*disambiguation*/, int /*count*/) const {
  static const QHash<QString, QString> kTexts = {
      {"Double Sided Printing", "Oboustranný tisk"},
      {"Off", "Vypnuto"},
      {"Long side binding", "Vazba na delší straně"},
      {"Short side binding", "Vazba na kratší straně"},
      {"Pages", "Strany"},
      {"Specify pages or ranges separated by commas. Ranges are specified by two numbers separated "
       "by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
       "Zadejte strany nebo rozsahy oddělené čárkami. Rozsah jsou dvě čísla se spojovníkem mezi "
       "nimi. Například 3,5-7,9 vytiskne strany 3, 5, 6, 7 a 9."},
      {"Advanced", "Pokročilé"},
      {"Page Setup Conflicts", "Neslučitelné nastavení strany"},
      {"Advanced Option Conflicts", "Neslučitelné pokročilé volby"},
      {"Duplex Settings Conflicts", "Neslučitelné nastavení oboustranného tisku"},
      {"There are conflicts in page setup options. Do you want to fix them?",
       "Některá nastavení strany se vylučují. Chcete je opravit?"},
      {"There are conflicts in some advanced options. Do you want to fix them?",
       "Některé pokročilé volby se vylučují. Chcete je opravit?"},
      {"There are conflicts in some options. Please fix them.",
       "Některé volby se vylučují. Opravte je prosím."},
      {"There are conflicts in duplex settings. Do you want to fix them?",
       "Některá nastavení oboustranného tisku se vylučují. Chcete je opravit?"},
      {"Invalid Pages Definition", "Chybně zadané strany"},
      {"%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to "
       "define ranges and make sure ranges do not intersect with each other.",
       "Zadání %1 není správné. Strany a rozsahy oddělujte čárkou, rozsah pište se spojovníkem; "
       "rozsahy se nesmějí překrývat."},
  };
  if (!QLatin1String(context).contains(QLatin1String("Print"))) return {};
  return kTexts.value(QString::fromUtf8(source));
}

}  // namespace velta::qt
