// Reads a document ten times, counts its elements and adds up an attribute, and writes it again.
#include <stdlib.h>

#include <iostream>

#include "tinyxml.h"

static void walk(const TiXmlElement *element, long &elements, double &sum) {
  for (; element; element = element->NextSiblingElement()) {
    ++elements;
    double price = 0;
    if (element->QueryDoubleAttribute("price", &price) == TIXML_SUCCESS) sum += price;
    walk(element->FirstChildElement(), elements, sum);
  }
}

int main(int, char **arguments) {
  long elements = 0;
  double sum = 0;
  for (int i = 0; i < 10; ++i) {
    TiXmlDocument document(arguments[1]);
    if (!document.LoadFile()) return 1;
    walk(document.RootElement(), elements, sum);
    std::string text;
    text << document;
    std::cout << elements << ' ' << sum << ' ' << text.size() << '\n';
  }
}
