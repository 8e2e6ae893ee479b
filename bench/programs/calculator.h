// The scanner of flex as the parser of bison sees it.
#ifndef yyFlexLexer
#include <FlexLexer.h>
#endif
#include "parser.hh"

class FlexScanner : public yyFlexLexer {
public:
  yy::parser::symbol_type next();
};
