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
  program_.state.EngineRate = 0;  // an earlier rate must not pass for an answer
  cnb_.Text1 = ShortDateText(due_date, program_.platform.locale);
  if (!cnb_.StanoveniPrvniSazby()) return std::nullopt;
  if (program_.state.EngineRate == 0) {
    program_.platform.message_box.Show(ui::Icon::kCritical, kTitle,
                                       "Nenalezena sazba pro zadané období");
    return std::nullopt;
  }
  return program_.state.EngineRate;
}

bool BankRates::StartRepo(Date due_date, Date payment_date, Money payment) {
  repo_.dtpSplatnost = due_date;
  repo_.dtpZaplaceni = payment_date;
  repo_.txtPostupnaUhrada = PlainText(payment, program_.platform.locale);
  repo_.PrvniSazba();
  return RepoPending();
}

}  // namespace velta
