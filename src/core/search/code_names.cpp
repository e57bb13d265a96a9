#include "search/code_names.h"

#include "codes/code_catalogue.h"

namespace lorvan {

CodeNames codeNames(Connection& main)
{
    CodeNames names;
    for (const MovementCode& code : listCodes(main, CodeSelection::All)) {
        if (!names.contains(code.code))
            names.insert(code.code, code.description);
    }
    return names;
}

} // namespace lorvan
