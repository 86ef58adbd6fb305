package tovu.local.model;

/** A joined federate. */
public final class Federate {
    private final Federation federation;
    private final int handle;
    private final String name;
    private final String type;
    private Session session;
    private CallbackSink sink;
    private ResignAction automaticResignDirective;

    Federate(Federation federation, int handle, String name, String type, Session session, CallbackSink sink) {
        this.federation = federation;
        this.handle = handle;
        this.name = name;
        this.type = type;
        this.session = session;
        this.sink = sink;
        automaticResignDirective = ResignAction.named(federation.switches().automaticResignAction());
    }

    public Federation federation() {
        return federation;
    }

    public int handle() {
        return handle;
    }

    public String name() {
        return name;
    }

    public String type() {
        return type;
    }

    public ResignAction automaticResignDirective() {
        return automaticResignDirective;
    }

    public void setAutomaticResignDirective(ResignAction action) {
        automaticResignDirective = action;
    }

    /** Leaves a callback for the federate. */
    void post(Callback callback) {
        sink.post(callback);
    }

    CallbackSink sink() {
        return sink;
    }

    @Override
    public String toString() {
        return "Federate '" + name + "' (" + handle + ")";
    }
}
