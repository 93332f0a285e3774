// The program without its windows. TMurala loads, connects and closes the parts; each part holds
// the rules of one kind of command and can be read alone.
#pragma once

#include "uAddOnDesk.h"
#include "uApplier.h"
#include "uConfigurator.h"
#include "uCore.h"
#include "uItemEditor.h"
#include "uLibraryDesk.h"
#include "uPreviewLoader.h"
#include "uSessionEntry.h"
#include "uStorage.h"
#include "uThumbnailCache.h"
#include "uTicker.h"
#include "uTray.h"

namespace murala
{

class TMurala
{
public:
    TCore Core;
    TStorage Storage{Core};
    TThumbnailCache Thumbnails{Core.List};
    TPreviewLoader Preview{Core};
    TLibraryDesk Desk{Core, Storage};
    TApplier Applier{Core, Storage, Preview};
    TAddOnDesk AddOns{Core, Storage};
    TItemEditor Editor{Core, Storage, Applier, Preview};
    TTray Tray{Core, Storage, Applier};
    TTicker Ticker{Core, Storage, Applier, Tray};
    TSessionEntry Session{Core, Storage, Desk};
    TConfigurator Configurator{Core, Storage, Desk, Session, Ticker, Thumbnails};

    TMurala(const TServices& services, TMainView& view) : Core(services, view) {}

    // `placement` is where the window would stand without settings.
    void LoadSettings(const TPlacement& placement)
    {
        Storage.LoadSettings(placement);
        Session.Load();
        Core.Listeners.Tell(&TListener::AddOnsChanged);
    }
    void Close()
    {
        Storage.SaveList();
        Preview.Release();
    }
};

} // namespace murala
