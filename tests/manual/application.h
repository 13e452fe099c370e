/// @file
/// The application around the examples of the manual, which are compiled as members of it.
#pragma once

#include <cerrno>
#include <cstdio>

#include "Galdren_Host.h"
#include "Galdren_Tools.h"
#include "Galdren_Util.h"

void Play();
void Read_All_Files();
void Run_At(int speed);
void Run_Command(const char* line);
void Save();
void Set_Volume(float volume);
void Show_Lines_From(int first);
void Show_Message(const char* text);
void Show_Page(int page);
bool Show_Volume_Menu();
void Tune(float frequency);
void Use(const unsigned char* pixels, int width, int height, int channels);
void Use_Color(unsigned long color);
void Use_Directory(const char* path);

/// What an example may speak of without making it.
struct Application {
    explicit Application(HWND window) : host(window) {}

    Labels label;
    Buttons button, ok;
    Valuators volume;
    Texts field;
    Host host;
    Application* light = this;

    void Toggle();
};
