#pragma once

/// @file
/// The files beside this one, put into the program when it is built: a page of which style, script
/// and data are the parts "@style@", "@script@" and "@data@".

namespace command::page
{

extern const char* const html;
extern const char* const style;
extern const char* const script;

} // namespace command::page
