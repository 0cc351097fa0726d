#include "acquisition/answer.h"

#include "async/awaitables.h"

#include <QCryptographicHash>

#include <utility>

namespace tamberline {

AnswerDigest::AnswerDigest(std::string_view answer)
    : digest_(QCryptographicHash::hash(
          QByteArrayView(answer.data(), static_cast<qsizetype>(answer.size())),
          QCryptographicHash::Blake2b_256)) {}

QCoro::Task<Answer> ask(Acquisition acquisition, Question question) {
  InBackground<Answer> asking(acquisition.queue, [machine = acquisition.machine, question] {
    Answer answer{.text = machine->answer(question), .digest = {}};
    answer.digest = AnswerDigest(answer.text);
    return answer;
  });
  Answer answer = co_await asking;
  co_return answer;
}

} // namespace tamberline
