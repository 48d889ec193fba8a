#include "windows/calculation/bank_rates.h"

#include <utility>

namespace velta {

BankRates::BankRates(Program& program, std::function<void()> repo_ready)
    : program_(program), cnb_(program), repo_(program, std::move(repo_ready)) {}

void BankRates::Load() {
  cnb_.Form_Load();
  repo_.Form_Load();
}

std::optional<Rate> BankRates::DiscountRate(Date due_date) {
  const std::optional<Rate> rate = cnb_.RateOn(due_date);
  if (rate && *rate == 0) {
    program_.platform.message_box.Show(ui::Icon::kCritical, kTitle, Text(Refusal::kNoRate));
    return std::nullopt;
  }
  return rate;
}

std::optional<Refusal> BankRates::StartRepo(Date due_date, Date payment_date, Money principal) {
  repo_.dtpSplatnost = due_date;
  repo_.dtpZaplaceni = payment_date;
  return repo_.PrvniSazba(principal);
}

}  // namespace velta
