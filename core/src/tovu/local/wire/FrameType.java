package tovu.local.wire;

/** What a frame says. Its code on the wire is its ordinal: new ones go to the end. */
public enum FrameType {
    /** Federate: the first frame. Magic number, version of the protocol, whether another hub has sent it here. */
    HELLO,
    /** Hub: the federate is in. Version, seconds of silence after which either side is lost, greatest frame. */
    WELCOME,
    /** Hub: the connection ends, and why. */
    CLOSING,
    /** Federate: a service. Number of the request; last callback begun and last one ended; service, message. */
    REQUEST,
    /** Hub: what the service returns. Number of the request, whether that is a licence, result. */
    REPLY,
    /** Hub: the service has failed. Number of the request, name of the exception, text. */
    FAILURE,
    /** Hub: a callback. Its number, whether it outlives a membership, native, message. */
    CALLBACK,
    /** Hub: a callback whose content is known only when it is its turn. Its number, whether it outlives a membership. */
    LATE_CALLBACK,
    /** Federate: it is the turn of a callback that has to be asked for. Number of the request, number of the callback. */
    RESOLVE,
    /** Hub: the answer. Number of the request; native and message, or nothing when there is nothing to tell. */
    RESOLVED,
    /** Hub: callbacks up to this number that have not begun yet have to be asked for, like late ones. */
    REVIEW,
    /**
     * Hub: messages that callbacks carry are retracted. The numbers of those callbacks; the number, native and message of
     * the callback to make instead if one of them has begun.
     */
    RETRACT,
    /** Federate: whether callbacks that were retracted had begun. Their numbers, each with a flag. */
    RETRACTED,
    /** Hub: the federate is no longer the member it was: callbacks that have not begun are dropped. */
    DROP,
    /** Federate: the last callback begun and the last one ended. */
    PROGRESS,
    /** Either side, when it has had nothing else to say. */
    HEARTBEAT,
    /** Federate: it leaves, and why. */
    GOODBYE,
    /**
     * Federate: a service for which it has a licence, and does not wait. Last callback begun and last one ended; service,
     * retraction number or 0, message.
     */
    SEND,
    /** Federate: asks for a reply once all before it is served. Number of the request; last callback begun, last ended. */
    FENCE,
    /** Hub: licences are over. The object instance that they concern, or 0 for all of them. */
    REVOKE,
    /** Hub: within which times the licences for what has a time hold. The first and the last one's bytes. */
    LIMITS,
    /** Hub: numbers for what the federate may retract. The first one, and how many. */
    NUMBERS,
    /** Hub: another hub serves this. Number of the request, the address of that hub. */
    ELSEWHERE;

    private static final FrameType[] ALL = values();

    /** @throws MalformedFrame for a code that stands for nothing */
    public static FrameType of(int code) {
        if (code < 0 || code >= ALL.length) {
            throw new MalformedFrame("a frame of the unknown type " + code);
        }
        return ALL[code];
    }
}
