// The texts of the window in the language of the user.
#pragma once

class QLocale;

/// Translates the texts of the application into the first language of \a locale that there is. Others stay English.
void installTranslations(const QLocale &locale);
