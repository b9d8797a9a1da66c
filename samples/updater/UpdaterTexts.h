/**
 * @file UpdaterTexts.h
 * What the updater tells its user, in English; language files have it in others
 * (docs/translating.md). Its record is for administrators, and in English.
 */
#pragma once

#include "common/LanguageFile.h"

namespace jsw::sample {

#define JSW_UPDATER_TEXTS(TEXT)                                                                 \
    TEXT(updatesInstalled, "New software or content is installed; the next print job uses it.") \
    TEXT(nothingToInstall, "There is nothing to install.")                                      \
    TEXT(installFailed, "Something could not be installed. See {0}.")

JSW_TEXTS(UpdaterTexts, "updater", JSW_UPDATER_TEXTS)

}  // namespace jsw::sample
