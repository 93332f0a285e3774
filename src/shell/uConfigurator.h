// What the configuration dialog edits, in one piece, and what confirming it does.
#pragma once

#include "uLibraryDesk.h"
#include "uSessionEntry.h"
#include "uThumbnailCache.h"
#include "uTicker.h"

namespace murala
{

enum class TRetitle { None, Selected, All };

struct TConfiguration {
    TPreferences Preferences;
    TScheduleSettings Schedule;
    bool StartAtStartup = false;
    bool ShellIntegration = false;
    TRetitle Retitle = TRetitle::None; // done once, when the dialog is confirmed
};

class TConfigurator
{
public:
    TConfigurator(TCore& core, TStorage& storage, TLibraryDesk& desk, TSessionEntry& session,
                  TTicker& ticker, TThumbnailCache& thumbnails)
        : m_core(core), m_storage(storage), m_desk(desk), m_session(session), m_ticker(ticker),
          m_thumbnails(thumbnails)
    {
    }

    TConfiguration Present() const;
    // Assigns the dialog's groups whole and saves once. The schedule's time begins anew.
    void Confirm(const TConfiguration& configuration);

    TThumbnailStatistics ThumbnailStatistics() { return m_thumbnails.Statistics(); }
    // Deletes the thumbnails' files; the items keep their numbers. The user can end it in between.
    void DeleteThumbnailCache();
    // Tells the user how many could not be made. The user can end it in between.
    void RefreshAllThumbnails();

private:
    TItems AllItems() const;

    TCore& m_core;
    TStorage& m_storage;
    TLibraryDesk& m_desk;
    TSessionEntry& m_session;
    TTicker& m_ticker;
    TThumbnailCache& m_thumbnails;
};

} // namespace murala
