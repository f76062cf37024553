// A small project drawing with every kind of translatable, and pieces to make others of.
#pragma once

#include <string>
#include <vector>

// Groups as "code value" lines; the value may be empty.
std::string Groups(const std::string& lines, const char* lineEnd = "\n");

// R2000, ANSI_1252. Pages P1 and P2. On P1: the texts "Motor" (30) and "Bomba" (31), a reference
// (32) of block "B" with the attribute "Motor" (33), an mtext "Painel" (34), a wire (35) whose
// xdata says "Cabo", a line (36). On P2: a second reference (37) and the text "Motor" (38). Block
// "B" holds the texts "Bomba" (20) and "Motor" (21). Virtual attribute "V" of object 52: "Sinal".
std::string SampleDrawing();

// The same without the OBJECTS section, as version R12.
std::string OldDrawing();

std::string Replaced(std::string text, const std::string& what, const std::string& with);
