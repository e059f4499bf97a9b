#include "ProgramDescription.h"
#include "ui/EditorOptions.h"

ProgramDescription describeEditor()
{
    ProgramDescription program;
    program.name = "vesperine";
    program.text = "Paints surfaces on 2D sprites and writes their normal maps.";
    program.version = VESPERINE_VERSION;
    for (const EditorOption &option : editorOptions())
        program.options.push_back({{option.name}, {}, option.description});
    program.arguments = {{"FILE", editorSummary().toStdString(), true, false}};
    program.sections = {
        {"NOTES",
         {"The window toolkit's own options, such as -style, -platform and -display, work too.",
          "The manual is in the Help menu, F1."}},
        {"SEE ALSO", {"vesperine-cli(1)"}}};
    return program;
}
