#include <chrono>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "engine/check_rates.h"

int main(int argc, char** argv) {
  try {
    const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    return velta::CheckRates(std::vector<std::string>(argv + 1, argv + argc), today, std::cout,
                             std::cerr);
  } catch (const std::exception& error) {
    std::cerr << "velta-check-rates: " << error.what() << '\n';
    return 2;
  }
}
