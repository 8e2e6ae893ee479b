%{
// The scanner of the calculator: flex's C++ class, which reads std::cin.
#include <cstdlib>
#include "calculator.h"
#define YY_DECL yy::parser::symbol_type FlexScanner::next()
typedef yy::parser parser;
%}
%option c++ noyywrap yyclass="FlexScanner"
%%
[ \t]+                              {}
[0-9]+(\.[0-9]*)?(e[0-9]+)?         { return parser::make_NUMBER(std::strtod(YYText(), 0)); }
[a-z][a-z0-9]*                      { return parser::make_NAME(YYText()); }
"="                                 { return parser::make_ASSIGN(); }
"+"                                 { return parser::make_PLUS(); }
"-"                                 { return parser::make_MINUS(); }
"*"                                 { return parser::make_TIMES(); }
"/"                                 { return parser::make_OVER(); }
","                                 { return parser::make_COMMA(); }
"("                                 { return parser::make_OPEN(); }
")"                                 { return parser::make_CLOSE(); }
\n                                  { return parser::make_END_OF_LINE(); }
<<EOF>>                             { return parser::make_END(); }
.                                   { throw parser::syntax_error(std::string("what is ") + YYText()); }
%%
