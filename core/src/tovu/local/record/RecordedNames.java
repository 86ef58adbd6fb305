package tovu.local.record;

import hla.rti1516e.exceptions.RTIexception;
import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import morva.tovu1516e.MalformedMessage;
import morva.tovu1516e.RecordedCalls;
import morva.tovu1516e.RecordedCalls.Discovery;
import tovu.local.delivery.CallbackMethod;
import tovu.local.fom.FomModule;
import tovu.local.fom.FomReader;
import tovu.local.fom.ObjectModel;
import tovu.local.model.exchange.ObjectNames;
import tovu.local.model.federation.FederationPlan;
import tovu.local.model.value.TimeFamily;
import tovu.local.trace.Describer;
import tovu.local.trace.ModelNames;
import tovu.local.wire.FrameReader;
import tovu.local.wire.FrameType;
import tovu.local.wire.Result;

/** What names and handles mean at each place of a recording: it follows who creates, joins, registers and discovers. */
final class RecordedNames {
    /** A federation execution, as far as names go. */
    private static final class Federation {
        final ObjectModel model;
        final TimeFamily family;
        final Map<Integer, String> objects = new HashMap<>();
        final Map<Integer, String> federates = new HashMap<>();

        Federation(ObjectModel model, TimeFamily family) {
            this.model = model;
            this.family = family;
        }
    }

    /** An ambassador's connection. */
    private final class Connection extends ModelNames {
        final String address;
        final Describer describer = new Describer(this);
        Federation federation; // null for none
        String federate;

        Connection(String address) {
            this.address = address;
        }

        @Override
        protected ObjectModel model() {
            return federation == null ? null : federation.model;
        }

        @Override
        public String object(int handle) {
            return federation == null ? null : federation.objects.get(handle);
        }

        @Override
        public String federate(int handle) {
            return federation == null ? null : federation.federates.get(handle);
        }

        @Override
        public TimeFamily timeFamily() {
            return federation == null ? null : federation.family;
        }
    }

    private final Map<Integer, Connection> connections = new HashMap<>();
    private final Map<String, Federation> federations = new HashMap<>();

    /** Who has that connection: a federate's name, or the address of one that is not joined. */
    String who(int connection) {
        Connection its = connections.get(connection);
        return its.federate == null ? its.address : its.federate;
    }

    Describer describer(int connection) {
        return connections.get(connection).describer;
    }

    /** What a service returned. */
    static Object result(Entry answer) {
        byte[] frame = new byte[1 + answer.content().length];
        frame[0] = (byte) FrameType.REPLY.ordinal();
        System.arraycopy(answer.content(), 0, frame, 1, answer.content().length);
        return Result.read(new FrameReader(frame));
    }

    /** What an entry changes. What opens a connection and callbacks come before their names are asked for. */
    void follow(Entry entry) {
        Connection its = connections.get(entry.connection());
        switch (entry.kind()) {
            case OPENED -> connections.put(entry.connection(), new Connection(entry.text()));
            case RESULT -> {
                try {
                    served(its, entry.request(), result(entry));
                } catch (MalformedMessage e) {
                    // it uses one number for several requests, and this is the answer to another one
                }
            }
            case CALLBACK, LATE_CALLBACK -> {
                Discovery discovery = RecordedCalls.discovery(CallbackMethod.of(entry.code()), entry.content());
                if (discovery != null && its.federation != null) {
                    its.federation.objects.put(discovery.object(), discovery.name());
                }
            }
            default -> {
                // of nothing that has a name
            }
        }
    }

    private static String unquoted(String text) {
        return text.substring(1, text.length() - 1);
    }

    private void served(Connection its, Entry request, Object result) {
        List<String> arguments = RecordedCalls.arguments(its.describer, request.code(), request.content());
        switch (RecordedCalls.name(request.code())) {
            case "createFederationExecution" -> create(RecordedCalls.plan(request.code(), request.content()));
            case "destroyFederationExecution" -> federations.remove(unquoted(arguments.get(0)));
            case "joinFederationExecution" -> {
                if (result instanceof Integer handle) {
                    join(its, RecordedCalls.joining(request.code(), request.content()), handle);
                }
            }
            case "resignFederationExecution" -> {
                its.federation = null;
                its.federate = null;
            }
            case "registerObjectInstance", "registerObjectInstanceWithRegions" -> {
                String last = arguments.get(arguments.size() - 1);
                if (result instanceof Integer handle && its.federation != null) {
                    its.federation.objects.put(handle,
                            last.startsWith("\"") ? unquoted(last) : ObjectNames.chosenFor(handle));
                }
            }
            default -> {
                // makes nothing that has a name
            }
        }
    }

    private void create(FederationPlan plan) {
        try {
            FomModule mim = plan.mim() == null || plan.mim().text() == null ? FomReader.standardMim()
                    : FomReader.ofMim().readMim(plan.mim());
            TimeFamily family = Arrays.stream(TimeFamily.values())
                    .filter(each -> each.implementationName().equals(plan.timeImplementation())).findFirst()
                    .orElse(TimeFamily.FLOAT64);
            federations.put(plan.name(),
                    new Federation(ObjectModel.of(mim, FomReader.ofModules().readAll(plan.fomModules())), family));
        } catch (RTIexception e) {
            throw new IllegalStateException("The modules of '" + plan.name() + "' were read once and cannot be now: "
                    + e.getMessage(), e);
        }
    }

    private void join(Connection its, RecordedCalls.Joining joining, int handle) {
        its.federation = federations.get(joining.federation());
        if (its.federation == null) {
            return; // it was made before the recording began
        }
        its.federate = joining.federateName() == null ? joining.federateType() + "-" + handle : joining.federateName();
        its.federation.federates.put(handle, its.federate);
        try {
            its.federation.model.extend(FomReader.ofModules().readAll(joining.modules()));
        } catch (RTIexception e) {
            throw new IllegalStateException("The modules of " + its.federate + " were read once and cannot be now: "
                    + e.getMessage(), e);
        }
    }
}
