// An INI text, and what the private-profile functions read from its section "Main".
#pragma once

#include <utility>

inline constexpr char ProfileText[] =
    "stray=0\r\n; [Main]\r\n  [ mAIN ] behind\r\n Plain = two words \t\r\n;Comment=1\r\n"
    "Double=\" x \"\r\nSingle=' x '\r\nMixed='x\"\r\nLone=\"\r\nNested=\"\"x\"\"\r\nEquals=a=b\r\n"
    "Empty=\r\n# Hash=2\r\nno equals\r\nplain=second\r\n1024=(blank)\r\n\"a%3Db\"=1 ; behind\r\n"
    "[Other]x]\r\nKey=1\r\n[Main]\r\nSecond=1\r\n[open\r\nOpen=2\r\n";

inline constexpr std::pair<const char*, const char*> ProfileValues[] = {
    {"plain", "two words"}, {" PLAIN ", "two words"}, {"Double", " x "},
    {"Single", " x "},      {"Mixed", "'x\""},        {"Lone", "\""},
    {"Nested", "\"x\""},    {"Equals", "a=b"},        {"Empty", ""},
    {"# Hash", "2"},        {"1024", "(blank)"},      {"\"a%3Db\"", "1 ; behind"},
    {"Comment", "none"},    {"Open", "none"},         {"no equals", "none"},
    {"stray", "none"},      {"Second", "none"},       {"Key", "none"}};
