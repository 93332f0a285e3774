// The whole program without windows, on services that remember.
#pragma once

#include "FakeMainView.h"
#include "FakeServices.h"
#include "uMurala.h"
#include "uTempFolder.h"
#include "uTestPictures.h"

#include <gtest/gtest.h>

namespace murala
{

class TMuralaFixture : public testing::Test
{
protected:
    TMuralaFixture()
    {
        m_services.ProgramFolder = WithTrailingDivider(m_folder.Path());
        Restart();
    }

    void Restart()
    {
        m_view = TFakeMainView();
        m_murala = std::make_unique<TMurala>(m_services.Services(), m_view);
        m_murala->LoadSettings({});
        m_murala->Storage.LoadList();
        m_murala->Core.Updating = false;
    }

    std::string Picture(const std::string& name, int width = 8, int height = 4,
                        TColor color = 0x204060)
    {
        return SavePicture(m_services.ProgramFolder + name, width, height, color);
    }

    void AddPictures(int count)
    {
        std::vector<std::string> files;
        for (int i = 0; i < count; ++i)
            files.push_back(Picture("Picture" + std::to_string(i) + ".bmp"));
        m_murala->Desk.AddFiles(files);
    }

    // A folder in the place of a file: neither can it be read nor replaced, by anybody.
    void Block(std::string_view name)
    {
        std::filesystem::rename(NativePath(m_folder.File(name)),
                                NativePath(m_folder.File(name) + ".aside"));
        std::filesystem::create_directory(NativePath(m_folder.File(name)));
    }
    void Unblock(std::string_view name)
    {
        std::filesystem::remove(NativePath(m_folder.File(name)));
        std::filesystem::rename(NativePath(m_folder.File(name) + ".aside"),
                                NativePath(m_folder.File(name)));
    }

    TMuWallpaper& Item(int row) const { return m_murala->Core.List.Item(row); }
    TBitmap Installed() const { return LoadImageFile(m_folder.File("MuralaWallpaper.bmp")); }
    void Select(int row) { m_murala->Core.Selection.Select(&Item(row)); }
    void Apply(int row)
    {
        Select(row);
        m_murala->Applier.Apply(Item(row));
    }
    std::vector<int> SelectedRows() const { return m_murala->Core.Selection.Rows(); }
    TItems Selected() const { return m_murala->Core.Selection.Items(); }
    // What the preview shows in the end; empty: a picture, or nothing.
    std::string LoadPreview()
    {
        while (std::exchange(m_view.PreviewWait, 0) > 0)
            m_murala->Preview.Tick();
        return m_view.PreviewText;
    }
    int CurrentIndex() const { return m_murala->Core.Selection.CurrentIndex(); }
    std::string Titles() const
    {
        std::string titles;
        for (int i = 0; i < m_murala->Core.List.Count(); ++i)
            titles += Item(i).Title.back();
        return titles;
    }

    TTempFolder m_folder;
    TFakeServices m_services;
    TFakeMainView m_view;
    std::unique_ptr<TMurala> m_murala;
};

} // namespace murala
