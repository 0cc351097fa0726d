#include "acquisition/machine_answer.h"

#include "async/awaitables.h"

#include <QCryptographicHash>

#include <utility>

namespace tamberline {

AnswerDigest::AnswerDigest(std::string_view answer)
    : digest_(QCryptographicHash::hash(
          QByteArrayView(answer.data(), static_cast<qsizetype>(answer.size())),
          QCryptographicHash::Blake2b_256)) {}

QCoro::Task<MachineAnswer> ask(Acquisition acquisition, Question question) {
  InBackground<MachineAnswer> asking(acquisition.queue, [machine = acquisition.machine, question] {
    MachineAnswer answer{.text = machine->answer(question), .digest = {}};
    answer.digest = AnswerDigest(answer.text);
    return answer;
  });
  MachineAnswer answer = co_await asking;
  co_return answer;
}

} // namespace tamberline
