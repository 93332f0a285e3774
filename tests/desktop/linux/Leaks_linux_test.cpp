// What the address sanitizer's leak checker is told before it starts.

// Pango has Fontconfig look for fonts in threads of its own, which keep what they have found until
// the program ends, also when every font is given back.
extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libfontconfig";
}
