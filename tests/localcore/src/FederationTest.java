import java.util.ArrayList;
import java.util.List;
import java.util.Set;
import tovu.local.model.AdvanceKind;
import tovu.local.model.Federations;
import tovu.local.model.ResignAction;
import tovu.local.model.Timing;

/** Joining, synchronizing, saving and restoring. */
final class FederationTest {
    private static final byte[] TAG = "tag".getBytes();
    private final Federations federations = new Federations();
    private TestFederate a;
    private TestFederate b;

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        harness.run("life cycle", () -> new FederationTest().lifeCycle());
        harness.run("synchronization", () -> new FederationTest().two().synchronization());
        harness.run("synchronization set", () -> new FederationTest().two().synchronizationSet());
        harness.run("save and restore", () -> new FederationTest().two().saveAndRestore());
        harness.run("restored state", () -> new FederationTest().restoredState());
        harness.run("state of very many federates", () -> new FederationTest().crowd());
        harness.run("failed save and restore", () -> new FederationTest().two().failures());
        harness.finish();
    }

    private FederationTest two() throws Exception {
        TestFederate.create(federations, "f", List.of(), "");
        a = TestFederate.join(federations, "f", "a");
        b = TestFederate.join(federations, "f", "b");
        return this;
    }

    private void lifeCycle() throws Exception {
        TestFederate outsider = new TestFederate(federations);
        Harness.refuses("FederationExecutionDoesNotExist", () -> TestFederate.join(federations, "f", "a"), "'f'");
        Harness.refuses("FederateNotExecutionMember", () -> outsider.resign(ResignAction.NO_ACTION));
        Harness.refuses("CouldNotCreateLogicalTimeFactory",
                () -> TestFederate.create(federations, "f", List.of(), "sundial"), "sundial");
        two();
        Harness.refuses("FederationExecutionAlreadyExists", () -> two());
        Harness.refuses("FederateNameAlreadyInUse", () -> TestFederate.join(federations, "f", "a"), "'a'");
        Harness.refuses("FederatesCurrentlyJoined", () -> outsider.session.destroyFederationExecution("f"), "a, b");
        Harness.refuses("FederateAlreadyExecutionMember", () -> a.session.join("c", "type", "f", List.of()));
        Harness.refuses("FederateIsExecutionMember", () -> a.session.disconnect(), "resign");
        outsider.session.listFederationExecutions();
        Harness.equal(outsider.told().toString(), "[reportFederationExecutions([FederationInformation[name=f, "
                + "timeImplementation=HLAfloat64Time]])]");
        Harness.equal(a.ask((federation, me) -> federation.federateHandle("b")), b.handle());
        int gone = b.handle();
        b.resign(ResignAction.NO_ACTION);
        Harness.refuses("FederateHandleNotKnown", () -> a.act((federation, me) -> federation.federateName(gone)));
        Harness.refuses("InvalidFederateHandle", () -> a.act((federation, me) -> federation.federateName(77)));
        Harness.refuses("NameNotFound", () -> a.act((federation, me) -> federation.federateHandle("b")));
        a.session.abandon();
        outsider.session.destroyFederationExecution("f");
        outsider.session.disconnect();
        Harness.refuses("NotConnected", () -> outsider.session.listFederationExecutions());
    }

    private void synchronization() throws Exception {
        a.act((federation, me) -> federation.synchronizationPoints().register(me, "p", TAG, Set.of()));
        b.act((federation, me) -> federation.synchronizationPoints().register(me, "p", TAG, Set.of()));
        Harness.equal(a.told(), List.of("synchronizationPointRegistrationSucceeded(p)",
                "announceSynchronizationPoint(p, 'tag')"));
        Harness.equal(b.told(), List.of("announceSynchronizationPoint(p, 'tag')",
                "synchronizationPointRegistrationFailed(p, LABEL_NOT_UNIQUE)"));
        TestFederate late = TestFederate.join(federations, "f", "late");
        Harness.equal(late.told(), List.of("announceSynchronizationPoint(p, 'tag')"));
        a.act((federation, me) -> federation.synchronizationPoints().achieved(me, "p", false));
        b.act((federation, me) -> federation.synchronizationPoints().achieved(me, "p", true));
        Harness.refuses("SynchronizationPointLabelNotAnnounced",
                () -> a.act((federation, me) -> federation.synchronizationPoints().achieved(me, "p", true)), "already");
        Harness.equal(a.told(), List.of());
        late.resign(ResignAction.NO_ACTION);
        Harness.equal(a.told(), List.of("federationSynchronized(p, [" + a.handle() + "])"));
        Harness.equal(b.told(), List.of("federationSynchronized(p, [" + a.handle() + "])"));
        Harness.equal(late.told(), List.of());
    }

    private void synchronizationSet() throws Exception {
        TestFederate c = TestFederate.join(federations, "f", "c");
        int gone = c.handle();
        c.resign(ResignAction.NO_ACTION);
        a.act((federation, me) -> federation.synchronizationPoints().register(me, "p", TAG, Set.of(gone)));
        Harness.equal(a.told(), List.of("synchronizationPointRegistrationFailed(p, SYNCHRONIZATION_SET_MEMBER_NOT_JOINED)"));
        Harness.refuses("InvalidFederateHandle", () -> a.act((federation, me) ->
                federation.synchronizationPoints().register(me, "p", TAG, Set.of(99))), "99");
        a.act((federation, me) -> federation.synchronizationPoints().register(me, "p", TAG, Set.of(b.handle())));
        Harness.equal(a.told(), List.of("synchronizationPointRegistrationSucceeded(p)"));
        b.act((federation, me) -> federation.synchronizationPoints().achieved(me, "p", true));
        Harness.equal(b.told(), List.of("announceSynchronizationPoint(p, 'tag')", "federationSynchronized(p, [])"));
        Harness.equal(a.told(), List.of());
    }

    private void saveBegun(TestFederate federate) throws Exception {
        federate.told();
        federate.session.call((federation, me) -> {
            federation.save().begun(me);
            return null;
        });
    }

    private void saveComplete(TestFederate federate, boolean successfully) throws Exception {
        federate.session.call((federation, me) -> {
            federation.save().complete(me, successfully);
            return null;
        });
    }

    private void restoreComplete(TestFederate federate, boolean successfully) throws Exception {
        federate.session.call((federation, me) -> {
            federation.restore().complete(me, successfully);
            return null;
        });
    }

    private void save(String label) throws Exception {
        a.act((federation, me) -> federation.save().request(label));
        saveBegun(a);
        saveBegun(b);
        saveComplete(a, true);
        saveComplete(b, true);
    }

    private void saveAndRestore() throws Exception {
        a.act((federation, me) -> federation.save().request("s"));
        Harness.equal(b.told(), List.of("initiateFederateSave(s, null)"));
        Harness.refuses("SaveInProgress", () -> b.act((federation, me) -> { }), "'s'");
        Harness.refuses("SaveInProgress", () -> TestFederate.join(federations, "f", "c"));
        Harness.refuses("FederateHasNotBegunSave", () -> saveComplete(a, true));
        saveBegun(a);
        Harness.refuses("SaveNotInitiated", () -> saveBegun(a));
        a.session.call((federation, me) -> {
            federation.save().queryStatus(me);
            return null;
        });
        Harness.that(a.told().get(0).contains("status=SAVING") , "the status tells who is saving");
        saveComplete(a, true);
        saveBegun(b);
        saveComplete(b, true);
        Harness.equal(b.told(), List.of("federationSaved()"));
        a.told();

        b.act((federation, me) -> federation.restore().request(me, "unknown"));
        Harness.equal(b.told(), List.of("requestFederationRestoreFailed(unknown)"));
        b.act((federation, me) -> federation.restore().request(me, "s"));
        Harness.equal(b.told(), List.of("requestFederationRestoreSucceeded(s)", "federationRestoreBegun()",
                "initiateFederateRestore(s, b, " + b.handle() + ")"));
        Harness.refuses("RestoreInProgress", () -> a.act((federation, me) -> { }), "'s'");
        restoreComplete(a, true);
        Harness.refuses("RestoreNotRequested", () -> restoreComplete(a, true));
        restoreComplete(b, true);
        Harness.equal(b.told(), List.of("federationRestored()"));
    }

    /** Objects, ownership, subscriptions, names, times and messages on their way are what they were. */
    private void restoredState() throws Exception {
        TestFederate.create(federations, "f", List.of(TestFom.file(TestFom.AIR)), "HLAinteger64Time");
        a = TestFederate.join(federations, "f", "a");
        b = TestFederate.join(federations, "f", "b");
        a.act((federation, me) -> federation.time().enableRegulation(me, 1));
        b.act((federation, me) -> federation.time().enableConstrained(me));
        int[] position = a.attributes("Vehicle", "position");
        a.publish("Vehicle", "position");
        b.publish("Vehicle", "position");
        b.subscribe("Vehicle", "position");
        int object = a.register("Vehicle");
        a.act((federation, me) -> federation.names().reserve(me, "kept"));
        a.told();
        b.told();
        a.act((federation, me) -> federation.objectManagement().update(me, object, TestFederate.values(position), TAG,
                Timing.at(5)));
        b.act((federation, me) -> federation.time().advance(me, AdvanceKind.TIME_ADVANCE, 6));
        save("s");
        a.act((federation, me) -> federation.time().advance(me, AdvanceKind.TIME_ADVANCE, 8));
        a.told();
        Harness.that(b.told().get(1).startsWith("reflectAttributeValues"), "the message came");
        b.unsubscribe("Vehicle", "position");
        a.act((federation, me) -> federation.objectManagement().delete(me, object, TAG, Timing.NONE));
        a.act((federation, me) -> federation.names().release(me, Set.of("kept")));
        int handle = a.handle();

        for (int round = 0; round < 2; ++round) {
            b.act((federation, me) -> federation.restore().request(me, "s"));
            restoreComplete(a, true);
            restoreComplete(b, true);
            Harness.equal(a.told(), List.of("federationRestored()"));
            Harness.equal(b.told(), List.of("federationRestored()"));
            Harness.equal(a.handle(), handle);
            Harness.equal(a.ask((federation, me) -> federation.time().logicalTime(me).bits()), 0L);
            Harness.that(a.ask((federation, me) -> federation.ownership().isOwned(me, object, position[0])), "owned");
            Harness.refuses("InTimeAdvancingState", () -> b.act((federation, me) ->
                    federation.time().advance(me, AdvanceKind.TIME_ADVANCE, 9)));
            a.act((federation, me) -> federation.time().advance(me, AdvanceKind.TIME_ADVANCE, 7));
            List<String> told = b.told();
            Harness.that(told.size() == 2 && told.get(0).startsWith("reflectAttributeValues(" + object)
                    && told.get(1).equals("timeAdvanceGrant(6)"), told.toString());
            a.told();
            a.act((federation, me) -> federation.names().release(me, Set.of("kept")));
            b.act((federation, me) -> federation.ownership().acquire(me, object, position, TAG));
            Harness.that(a.told().get(0).startsWith("requestAttributeOwnershipRelease"), "all still know each other");
        }
    }

    private void crowd() throws Exception {
        TestFederate.create(federations, "f", List.of(TestFom.file(TestFom.AIR)), "");
        List<TestFederate> all = new ArrayList<>();
        for (int i = 0; i < 220; ++i) {
            TestFederate each = TestFederate.join(federations, "f", "c" + i);
            each.publish("Vehicle", "position");
            each.subscribe("Vehicle", "position");
            all.add(each);
        }
        for (TestFederate each : all) {
            each.register("Vehicle");
        }
        all.get(0).act((federation, me) -> federation.save().request("s"));
        for (TestFederate each : all) {
            saveBegun(each);
            saveComplete(each, true);
        }
        all.get(0).act((federation, me) -> federation.restore().request(me, "s"));
        for (TestFederate each : all) {
            restoreComplete(each, true);
        }
        Harness.equal(all.get(0).told(), List.of("federationRestored()"));
    }

    private void failures() throws Exception {
        a.act((federation, me) -> federation.save().request("s"));
        saveBegun(a);
        saveComplete(a, false);
        saveBegun(b);
        b.told();
        saveComplete(b, true);
        Harness.equal(b.told(), List.of("federationNotSaved(FEDERATE_REPORTED_FAILURE)"));
        b.act((federation, me) -> federation.restore().request(me, "s"));
        Harness.equal(b.told(), List.of("requestFederationRestoreFailed(s)"));

        a.act((federation, me) -> federation.save().request("s"));
        b.told();
        a.session.call((federation, me) -> {
            federation.save().abort();
            return null;
        });
        Harness.equal(b.told(), List.of("federationNotSaved(ABORTED)"));
        save("s");
        b.act((federation, me) -> federation.restore().request(me, "s"));
        restoreComplete(a, false);
        b.told();
        restoreComplete(b, true);
        Harness.equal(b.told(), List.of("federationNotRestored(FEDERATE_REPORTED_FAILURE)"));
        b.act((federation, me) -> federation.restore().request(me, "s"));
        a.told();
        b.resign(ResignAction.NO_ACTION);
        Harness.equal(a.told(), List.of("federationNotRestored(FEDERATE_RESIGNED)"));
        a.act((federation, me) -> federation.restore().request(me, "s"));
        Harness.equal(a.told(), List.of("requestFederationRestoreFailed(s)"));
    }
}
